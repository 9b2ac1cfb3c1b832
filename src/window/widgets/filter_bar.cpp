#include "window/widgets/filter_bar.h"

#include "platform/qt/shown_text.h"
#include "servers/server_filter.h"
#include "window/rules/commands.h"
#include "window/widgets/binders.h"
#include "window/widgets/command_views.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kGap = 6;
constexpr int kChoiceLetters = 12;

QWidget* makeChoice(ListField& field) {
    auto* list = new QComboBox;
    bind(*list, field);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(kChoiceLetters);
    return list;
}

QWidget* makeMore(ServerFilter& filter) {
    auto* more = new QWidget;
    auto* rows = new QVBoxLayout(more);
    rows->setContentsMargins({});
    rows->setSpacing(kGap);
    auto* checks = new QHBoxLayout;
    for (CheckField* field :
         {&filter.filterplayers, &filter.filterfree, &filter.filtersilent, &filter.filterfavourites}) {
        auto* box = new QCheckBox(shown(field->spec().caption));
        bind(*box, *field);
        checks->addWidget(box);
    }
    checks->addStretch(1);
    auto* choices = new QHBoxLayout;
    for (ListField* field : {&filter.filtergame, &filter.filtermod}) choices->addWidget(makeChoice(*field));
    choices->addStretch(1);
    rows->addLayout(checks);
    rows->addLayout(choices);
    return more;
}

QToolButton* makeSwitch(QWidget& more) {
    auto* button = new QToolButton;
    describe(*button, commandInfo("morefilters"));
    button->setCheckable(true);
    button->setArrowType(Qt::DownArrow);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    more.hide();
    QObject::connect(button, &QToolButton::toggled, &more, [button, &more](bool on) {
        more.setVisible(on);
        button->setArrowType(on ? Qt::UpArrow : Qt::DownArrow);
    });
    return button;
}

}  // namespace

QWidget* makeFilterBar(ServerFilter& filter, QWidget* behind) {
    auto* bar = new QWidget;
    auto* column = new QVBoxLayout(bar);
    column->setContentsMargins({});
    column->setSpacing(kGap);
    auto* row = new QHBoxLayout;
    auto* line = new QLineEdit;
    bind(*line, filter.filtertext);
    line->setClearButtonEnabled(true);
    auto* clear = new QAction(line);
    describe(*clear, commandInfo("clearfilter"));
    clear->setShortcutContext(Qt::WidgetShortcut);
    bindCommand(*clear, filter.active, [&filter] { filter.clear(); });
    static_cast<QWidget*>(line)->addAction(clear);
    auto* caption = new QLabel;
    bindCaption(*caption, *line, filter.filtertext);
    QWidget* more = makeMore(filter);
    row->addWidget(caption);
    row->addWidget(line, 1);
    row->addWidget(makeSwitch(*more));
    if (behind) row->addWidget(behind);
    column->addLayout(row);
    column->addWidget(more);
    return bar;
}

}  // namespace gatehouse
