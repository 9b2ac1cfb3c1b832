#include "window/widgets/field_grid.h"

#include "platform/qt/shown_text.h"
#include "window/widgets/binders.h"

#include <QLabel>

namespace gatehouse {

namespace {

constexpr int kColumns = 3;

}  // namespace

FieldGrid::FieldGrid(QWidget* owner) : QGridLayout(owner) {
    setContentsMargins({});
    setVerticalSpacing(kRowGap);
    setHorizontalSpacing(kCaptionGap);
    setColumnStretch(1, 1);
}

void FieldGrid::addHeading(std::string_view heading) {
    auto* label = new QLabel(shown(heading));
    label->setTextFormat(Qt::PlainText);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    if (count() > 0) label->setContentsMargins(0, kSectionGap, 0, 0);
    addWidget(label, rowCount(), 0, 1, kColumns);
}

QLabel* FieldGrid::addField(Field& field, QWidget& editor, QWidget& cell, QWidget* behind) {
    auto* caption = new QLabel;
    bindCaption(*caption, editor, field);
    showHint(*caption, field);
    addRow(*caption, cell, behind);
    return caption;
}

void FieldGrid::addRow(QLabel& caption, QWidget& cell, QWidget* behind) {
    const int line = rowCount();
    addWidget(&caption, line, 0);
    addWidget(&cell, line, 1, 1, behind ? 1 : kColumns - 1);
    if (behind) addWidget(behind, line, 2);
}

}  // namespace gatehouse
