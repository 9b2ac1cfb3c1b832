#pragma once

#include "base/field.h"
#include "window/widgets/binders.h"

#include <QScrollArea>

#include <string_view>
#include <vector>

class QBoxLayout;

namespace gatehouse {

class FieldGrid;

/// One row of a form: a field, and where its row is more than a caption and the field's widget.
struct FormRow {
    Field& field;
    /// What may be typed, for a text.
    Typed typed = Typed::AnyText;
    /// Stands in front of the field instead of its caption.
    LabelField* title = nullptr;
    /// The check that lets a password be typed; it stands in front of the line and gives the row its caption.
    CheckField* lock = nullptr;
    /// Stands behind the field's widget.
    QWidget* behind = nullptr;
    /// Stands below the field's widget.
    QWidget* below = nullptr;
};

/// Rows under a heading.
struct FormSection {
    std::string_view heading;
    std::vector<FormRow> rows;
};

/// What a form shows: sections below each other, in two columns.
struct FormPlan {
    std::vector<FormSection> left;
    std::vector<FormSection> right;
};

/// The sections of a group as they are declared. `special` rows stand in place of those of their fields; a field that is
/// the title or the lock of one has no row of its own.
FormPlan planOf(const FieldGroup& group, const std::vector<FormRow>& special = {});

/// A tab full of settings. Its columns stand side by side where there is room for both, and below each other where
/// there isn't; what is too high is scrolled to. The fields must outlive it.
class SettingsForm : public QScrollArea {
    Q_OBJECT

public:
    explicit SettingsForm(const FormPlan& plan, QWidget* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* makeColumn(const std::vector<FormSection>& sections);
    void addRow(FieldGrid& grid, const FormRow& row);
    /// The widget that edits the field of a row, bound to it.
    QWidget* makeEditor(const FormRow& row);
    QWidget* makeText(TextField& field, Typed typed);
    QWidget* makeList(ListField& field);
    QWidget* makeSlider(SliderField& field);
    QWidget* makePassword(CheckField& lock, TextField& field);
    void arrangeColumns();

    QBoxLayout* columns_ = nullptr;
};

}  // namespace gatehouse
