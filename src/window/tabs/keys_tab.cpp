#include "config/settings_document.h"
#include "window/rules/key_rules.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/command_views.h"
#include "window/widgets/table_view.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kActionLetters = 40;

Ink kindInk(const KeyBinding& binding) {
    switch (binding.kind) {
        case BindingKind::Alias: return Ink::Red;
        case BindingKind::Mod: return Ink::Blue;
        case BindingKind::Action: break;
    }
    return Ink::Normal;
}

}  // namespace

QWidget* makeKeysTab(SettingsDocument& doc, KeyRules& rules) {
    auto* view = new TableView(new TableModel(
        doc.bindlist, TableLook<KeyBinding>{.columns = {{"Action", &KeyBinding::text}, {"Key", &KeyBinding::label}},
                                            .ink = kindInk}));
    view->setObjectName("bindlist");
    view->setAccessibleName(QObject::tr("Keys"));
    view->setRootIsDecorated(false);
    view->setColumnLetters({kActionLetters});
    QObject::connect(view, &TableView::rowOpened, view, [&rules] { rules.bindlist_DblClick(); });

    QPushButton* choose = makeCommandButton("choosekey");
    QObject::connect(choose, &QPushButton::clicked, view, [&rules] { rules.bindlist_DblClick(); });

    auto* tab = new QWidget;
    auto* column = new QVBoxLayout(tab);
    column->setContentsMargins({});
    column->addWidget(view, 1);
    column->addWidget(choose, 0, Qt::AlignLeft);
    return tab;
}

}  // namespace gatehouse
