#include "window/tabs/settings_form.h"

#include "platform/qt/shown_text.h"
#include "window/widgets/field_grid.h"
#include "window/widgets/follow.h"
#include "window/widgets/spin_text.h"
#include "window/widgets/wheel_guard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSlider>

#include <algorithm>
#include <utility>

namespace gatehouse {

namespace {

constexpr int kRowGap = FieldGrid::kRowGap;
constexpr int kSectionGap = FieldGrid::kSectionGap;
constexpr int kColumnGap = 32;
/// Sizes of widgets in letters, so that they grow with the font.
constexpr int kWidestForm = 150;
constexpr int kShortestList = 12;

/// Two widgets that stand in one cell.
QWidget* sideBySide(QWidget* first, QWidget* second, QWidget* stretched) {
    auto* pair = new QWidget;
    auto* layout = new QHBoxLayout(pair);
    layout->setContentsMargins({});
    layout->setSpacing(kRowGap);
    layout->addWidget(first);
    layout->addWidget(second);
    layout->setStretchFactor(stretched, 1);
    return pair;
}

/// A click on a caption is one on what it stands for.
void useBuddy(const QLabel& caption) {
    QWidget* buddy = caption.buddy();
    if (!buddy->isEnabled()) return;
    buddy->setFocus(Qt::MouseFocusReason);
    if (auto* box = qobject_cast<QCheckBox*>(buddy)) box->click();
}

}  // namespace

FormPlan planOf(const FieldGroup& group, const std::vector<FormRow>& special) {
    const auto isPartOf = [](const Field* field) {
        return [field](const FormRow& row) { return row.title == field || row.lock == field; };
    };
    FormPlan plan;
    for (const FieldSection* section : group.sections) {
        FormSection part{section->heading, {}};
        for (Field* field : section->fields) {
            if (std::any_of(special.begin(), special.end(), isPartOf(field))) continue;
            const auto row = std::find_if(special.begin(), special.end(),
                                          [field](const FormRow& one) { return &one.field == field; });
            part.rows.push_back(row != special.end() ? *row : FormRow{*field});
        }
        (section->column == Column::Left ? plan.left : plan.right).push_back(std::move(part));
    }
    return plan;
}

SettingsForm::SettingsForm(const FormPlan& plan, QWidget* parent) : QScrollArea(parent) {
    auto* body = new QWidget;
    columns_ = new QBoxLayout(QBoxLayout::LeftToRight, body);
    columns_->setContentsMargins(0, kRowGap, kRowGap, kRowGap);
    columns_->addWidget(makeColumn(plan.left), 1);
    if (!plan.right.empty()) columns_->addWidget(makeColumn(plan.right), 1);
    body->setMaximumWidth(kWidestForm * fontMetrics().averageCharWidth());
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(body);
}

QWidget* SettingsForm::makeColumn(const std::vector<FormSection>& sections) {
    auto* column = new QWidget;
    auto* grid = new FieldGrid(column);
    for (const FormSection& section : sections) {
        grid->addHeading(section.heading);
        for (const FormRow& row : section.rows) addRow(*grid, row);
    }
    grid->setRowStretch(grid->rowCount(), 1);
    return column;
}

void SettingsForm::addRow(FieldGrid& grid, const FormRow& row) {
    QWidget* cell = makeEditor(row);
    Field& captioned = row.lock ? *row.lock : row.field;
    const QString name = shown(captioned.spec().name);
    QWidget* editor = cell->objectName() == name ? cell : cell->findChild<QWidget*>(name);

    QWidget* filled = row.behind ? sideBySide(cell, row.behind, cell) : cell;
    QLabel* caption = nullptr;
    if (row.title) {
        caption = new QLabel;
        bind(*caption, *row.title);
        caption->setBuddy(editor);
        showHint(*caption, captioned);
        grid.addRow(*caption, *filled);
    } else {
        caption = grid.addField(captioned, *editor, *filled);
    }
    caption->installEventFilter(this);
    if (row.below) grid.addWidget(row.below, grid.rowCount(), 1);
}

QWidget* SettingsForm::makeEditor(const FormRow& row) {
    switch (row.field.kind()) {
        case Field::Kind::Text: {
            auto& field = static_cast<TextField&>(row.field);
            return row.lock ? makePassword(*row.lock, field) : makeText(field, row.typed);
        }
        case Field::Kind::List: return makeList(static_cast<ListField&>(row.field));
        case Field::Kind::Slider: return makeSlider(static_cast<SliderField&>(row.field));
        case Field::Kind::Label: {
            // A label with a range is counted up and down, and never typed.
            if (row.field.range()) return makeText(static_cast<TextField&>(row.field), row.typed);
            auto* label = new QLabel;
            bind(*label, static_cast<LabelField&>(row.field));
            return label;
        }
        case Field::Kind::Check:
        case Field::Kind::Number: break;
    }
    auto* box = new QCheckBox;
    bind(*box, static_cast<CheckField&>(row.field));
    return box;
}

QWidget* SettingsForm::makeText(TextField& field, Typed typed) {
    if (!field.range()) {
        auto* line = new QLineEdit;
        bind(*line, field, typed);
        return line;
    }
    auto* spin = new SpinText;
    bind(*spin, field, typed);
    guardFromWheel(*spin);
    return spin;
}

QWidget* SettingsForm::makeList(ListField& field) {
    auto* list = new QComboBox;
    bind(*list, field);
    // The longest entry must not decide how wide the column is.
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(kShortestList);
    guardFromWheel(*list);
    return list;
}

QWidget* SettingsForm::makeSlider(SliderField& field) {
    auto* slider = new QSlider(Qt::Horizontal);
    bind(*slider, field);
    guardFromWheel(*slider);

    auto* value = new QLabel(QString::number(field.range()->max));
    value->setMinimumWidth(value->sizeHint().width());
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const auto show = [value, &field] { value->setNum(field.position()); };
    show();
    listen(value, field.changed, show);
    return sideBySide(slider, value, slider);
}

QWidget* SettingsForm::makePassword(CheckField& lock, TextField& field) {
    auto* box = new QCheckBox;
    bind(*box, lock);
    auto* line = new QLineEdit;
    line->setEchoMode(QLineEdit::Password);
    bind(*line, field);
    return sideBySide(box, line, line);
}

bool SettingsForm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) arrangeColumns();
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto* caption = qobject_cast<QLabel*>(watched);
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (caption && mouse->button() == Qt::LeftButton && caption->rect().contains(mouse->pos())) useBuddy(*caption);
    }
    return QScrollArea::eventFilter(watched, event);
}

void SettingsForm::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    arrangeColumns();
}

void SettingsForm::arrangeColumns() {
    int needed = kColumnGap + columns_->contentsMargins().right();
    for (int i = 0; i < columns_->count(); ++i) needed += columns_->itemAt(i)->minimumSize().width();
    // The scroll bar counts whether it is there or not: its coming must not decide over its going.
    const bool fits = needed <= width() - verticalScrollBar()->sizeHint().width();
    const int spacing = fits ? kColumnGap : kSectionGap + kRowGap;
    // To set it anew asks for another layout, and that would ask here again, for ever.
    if (spacing != columns_->spacing()) columns_->setSpacing(spacing);
    columns_->setDirection(fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

}  // namespace gatehouse
