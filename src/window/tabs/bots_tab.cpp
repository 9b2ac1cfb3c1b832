#include "config/settings_document.h"
#include "window/rules/bots_rules.h"
#include "window/tabs/settings_form.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/follow.h"
#include "window/widgets/table_tools.h"
#include "window/widgets/table_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QToolBar>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kNameLetters = 20;
constexpr int kSkillLetters = 10;
constexpr int kHeadingTop = 6;  // where the heading of a form is

TableView* makeBotList(BotTable& q3botlist) {
    auto* view = new TableView(new TableModel(
        q3botlist,
        TableLook<BotEntry>{
            .columns = {{"Name", &BotEntry::name}, {"Skill", &BotEntry::skill}, {"Team", &BotEntry::team}}}));
    view->setObjectName("q3botlist");
    view->setAccessibleName(QObject::tr("Bots"));
    view->setRootIsDecorated(false);
    view->setEmptyText(QObject::tr("No bots yet. Press Insert to add one."));
    view->setColumnLetters({kNameLetters, kSkillLetters});
    return view;
}

QWidget* makeNamedBots(BotTable& q3botlist, BotsRules& rules, CommandFlags& flags) {
    TableView* list = makeBotList(q3botlist);
    follow(list, flags.q3botlist, [list](bool enabled) { list->setEnabled(enabled); });
    listen(list, rules.q3botlistFocusWanted, [list] { list->setFocus(Qt::OtherFocusReason); });

    auto* heading = new QLabel(QObject::tr("Named Bots"));
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    heading->setBuddy(list);
    QToolBar* tools = makeTableTools("q3bottools", QObject::tr("Bots"));
    addTableTool(*tools, *list, {"q3botadd", &flags.q3botadd, [&rules] { rules.q3botadd_Click(); }});
    addTableTool(*tools, *list, {"q3botdel", &flags.q3botdel, [&rules] { rules.q3botdel_Click(); }});

    auto* top = new QHBoxLayout;
    heading->setContentsMargins(0, kHeadingTop, 0, 0);
    top->addWidget(heading, 0, Qt::AlignTop);
    top->addStretch(1);
    top->addWidget(tools);
    auto* named = new QWidget;
    auto* column = new QVBoxLayout(named);
    column->setContentsMargins({});
    column->addLayout(top);
    column->addWidget(list, 1);
    return named;
}

}  // namespace

QWidget* makeBotsTab(SettingsDocument& doc, BotsRules& rules, CommandFlags& flags) {
    const FormPlan plan = planOf(doc.bots);
    auto* form = new SettingsForm({.left = plan.left, .right = {}});
    auto* random = new SettingsForm({.left = plan.right, .right = {}});
    QWidget* named = makeNamedBots(doc.q3botlist, rules, flags);

    // Either half of the choice takes the right side.
    auto* choice = new QStackedWidget;
    choice->addWidget(named);
    choice->addWidget(random);
    follow(choice, flags.namedBotsShown, [=](bool namedNow) { choice->setCurrentWidget(namedNow ? named : random); });

    auto* tab = new QWidget;
    auto* row = new QHBoxLayout(tab);
    row->setContentsMargins({});
    row->addWidget(form, 2);
    row->addWidget(choice, 3);
    return tab;
}

}  // namespace gatehouse
