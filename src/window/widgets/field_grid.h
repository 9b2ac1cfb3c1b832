#pragma once

#include "base/field.h"

#include <QGridLayout>

#include <string_view>

class QLabel;

namespace gatehouse {

/// How fields are laid out wherever they stand: under headings, one below the other, the caption in the first column,
/// what edits the field in the second, and what belongs to it in the third.
class FieldGrid : public QGridLayout {
public:
    static constexpr int kRowGap = 6;
    static constexpr int kCaptionGap = 12;
    static constexpr int kSectionGap = 14;

    /// `owner` may be null for a grid that joins another layout.
    explicit FieldGrid(QWidget* owner = nullptr);

    void addHeading(std::string_view heading);
    /// A new row: the field's caption and hint, leading to `editor`, and `cell`, which is the editor or holds it.
    QLabel* addField(Field& field, QWidget& editor, QWidget& cell, QWidget* behind = nullptr);
    QLabel* addField(Field& field, QWidget& editor, QWidget* behind = nullptr) {
        return addField(field, editor, editor, behind);
    }
    /// The same with a caption of its own.
    void addRow(QLabel& caption, QWidget& cell, QWidget* behind = nullptr);
};

}  // namespace gatehouse
