#include "config/settings_document.h"
#include "content/content_room.h"
#include "window/rules/player_rules.h"
#include "window/tabs/settings_form.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/previews.h"
#include "window/widgets/spin_text.h"
#include "window/widgets/table_tools.h"
#include "window/widgets/table_view.h"
#include "window/widgets/tree_search.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolBar>

namespace gatehouse {

namespace {

TableView* makeModelTree(SettingsDocument& doc, ContentRoom& content) {
    auto* tree = new TableView(new TableModel(
        content.models.mdltree,
        TableLook<ModelEntry>{.columns = {{"Model", &ModelEntry::text}},
                              .parent = [](const ModelTree& mdltree, int node) { return mdltree.at(node).parent; },
                              .choice = doc.currmodel.title()}));
    tree->setObjectName("mdltree");
    tree->setAccessibleName(QObject::tr("Models and Skins"));
    tree->setHeaderHidden(true);
    QObject::connect(tree, &TableView::rowChosen, tree, [&content] { content.mdltree_NodeClick(); });
    QObject::connect(tree, &TableView::currentClicked, tree, [&content] { content.preview.showSkin(); });
    addHidePicture(*tree, content.preview.q3levelshot, [&content] { content.preview.hide(); });
    return tree;
}

QWidget* makeModelPane(SettingsDocument& doc, ContentRoom& content) {
    TableView* tree = makeModelTree(doc, content);
    QToolBar* tools = makeTableTools("ptool1", QObject::tr("Models"));
    addTableTool(*tools, *tree, {"ptool1_1", nullptr, [&content] { content.ptool1_ButtonClick(); }});
    auto* top = new QHBoxLayout;
    top->addWidget(new TreeSearch(*tree, QObject::tr("Search models")), 1);
    top->addWidget(tools);
    auto* pane = new QWidget;
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins({});
    column->addLayout(top);
    column->addWidget(tree, 1);
    return pane;
}

/// The buttons count; nothing is typed.
void setStep(const QWidget& form, LabelField& field, std::function<void(int)> step) {
    auto* spin = form.findChild<SpinText*>(QString::fromStdString(field.name()));
    spin->line().setReadOnly(true);
    spin->setStep([&field, step = std::move(step)](int direction) { field.edit([&] { step(direction); }); });
}

}  // namespace

QWidget* makePlayerTab(SettingsDocument& doc, PlayerRules& rules, ContentRoom& content) {
    auto* form =
        new SettingsForm(planOf(doc.player, {{.field = doc.q3playername, .below = new NamePreview(rules.nc)},
                                             {.field = doc.q3fxcolor, .behind = new ColourPreview(rules.fxpreview)},
                                             {.field = doc.chindex, .behind = new CrosshairPreview(rules.chpic)}}));
    setStep(*form, doc.chindex, [&rules](int direction) {
        direction < 0 ? rules.crosshairupdown_DownClick() : rules.crosshairupdown_UpClick();
    });
    setStep(*form, doc.q3fxcolor, [&rules](int direction) {
        direction < 0 ? rules.q3fxcolorupdown_DownClick() : rules.q3fxcolorupdown_UpClick();
    });
    auto* tab = new QWidget;
    auto* row = new QHBoxLayout(tab);
    row->setContentsMargins({});
    row->addWidget(form, 3);
    row->addWidget(makeModelPane(doc, content), 2);
    return tab;
}

}  // namespace gatehouse
