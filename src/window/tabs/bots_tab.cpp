#include "config/settings_document.h"
#include "window/rules/bots_rules.h"
#include "window/tabs/settings_form.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/binders.h"
#include "window/widgets/icons.h"
#include "window/widgets/table_view.h"

#include <QAction>
#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kNameLetters = 20;
constexpr int kSkillLetters = 10;

TableView* makeBotList(BotTable& q3botlist) {
    auto* view = new TableView(new TableModel(
        q3botlist,
        TableLook<BotEntry>{
            .columns = {{"Name", &BotEntry::name}, {"Skill", &BotEntry::skill}, {"Team", &BotEntry::team}}}));
    view->setObjectName("q3botlist");
    view->setAccessibleName(QObject::tr("Bots"));
    view->setRootIsDecorated(false);
    view->setColumnLetters({kNameLetters, kSkillLetters});
    return view;
}

}  // namespace

QWidget* makeBotsTab(SettingsDocument& doc, BotsRules& rules, CommandFlags& flags) {
    auto* form = new SettingsForm(FormPlan{
        .left = {{"Behaviour", {{doc.q3bot_nochat}, {doc.q3botfastchat}, {doc.q3botrjump}}},
                 {"Random Bots", {{doc.q3randbots}, {doc.q3randnum}, {doc.q3randskill}}}},
        .right = {}});

    TableView* list = makeBotList(doc.q3botlist);
    follow(list, flags.q3botlist, [list](bool enabled) { list->setEnabled(enabled); });
    listen(list, rules.q3botlistFocusWanted, [list] { list->setFocus(Qt::OtherFocusReason); });

    auto* remove = new QAction(icon("remove"), QObject::tr("Delete"), list);
    remove->setShortcut(QKeySequence(Qt::Key_Delete));
    remove->setShortcutContext(Qt::WidgetShortcut);
    remove->setToolTip(QObject::tr("Take the bot off the list (Del)"));
    bindCommand(*remove, flags.q3botdel, [&rules] { rules.q3botdel_Click(); });
    list->addAction(remove);
    auto* q3botdel = new QToolButton;
    q3botdel->setObjectName("q3botdel");
    q3botdel->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    q3botdel->setFocusPolicy(Qt::StrongFocus);
    q3botdel->setDefaultAction(remove);

    auto* named = new QWidget;
    auto* column = new QVBoxLayout(named);
    column->setContentsMargins({});
    column->addWidget(list, 1);
    column->addWidget(q3botdel, 0, Qt::AlignLeft);
    auto* tab = new QWidget;
    auto* row = new QHBoxLayout(tab);
    row->setContentsMargins({});
    row->addWidget(form, 1);
    row->addWidget(named, 1);
    follow(named, flags.namedBotsShown, [named, tab](bool shownNow) {
        named->setVisible(shownNow && named->parentWidget() == tab);
    });
    return tab;
}

}  // namespace gatehouse
