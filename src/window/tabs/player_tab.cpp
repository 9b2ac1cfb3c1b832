#include "base/run_state.h"
#include "config/settings_document.h"
#include "content/model_catalog.h"
#include "window/tabs/settings_form.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/table_view.h"

#include <QHBoxLayout>

#include <algorithm>

namespace gatehouse {

namespace {

TableView* makeModelTree(ModelCatalog& models, SettingsDocument& doc, RunState& run) {
    auto* tree = new TableView(new TableModel(
        models.mdltree,
        TableLook<ModelEntry>{.columns = {{"Model", &ModelEntry::text}},
                              .parent = [](const ModelTree& mdltree, int node) { return mdltree.at(node).parent; }}));
    tree->setObjectName("mdltree");
    tree->setAccessibleName(QObject::tr("Models and Skins"));
    tree->setHeaderHidden(true);
    QObject::connect(tree, &TableView::rowChosen, tree, [&models, &doc, &run](int position) {
        std::string path = models.fullPath(position);
        std::replace(path.begin(), path.end(), '\\', '/');
        doc.currmodel.setText(path);
        run.ConfigChanged = true;
    });
    return tree;
}

}  // namespace

QWidget* makePlayerTab(SettingsDocument& doc, ModelCatalog& models, RunState& run) {
    auto* form = new SettingsForm(FormPlan{
        .left = {{"Player", {{doc.q3playername}, {doc.q3sexmale}, {doc.q3sexfemale}, {doc.q3handicap}, {doc.cg_autoswitch}}},
                 {"Looks", {{doc.currmodel}, {doc.q3fxcolor}, {doc.chindex}}}},
        .right = {}});
    auto* tab = new QWidget;
    auto* row = new QHBoxLayout(tab);
    row->setContentsMargins({});
    row->addWidget(form, 3);
    row->addWidget(makeModelTree(models, doc, run), 2);
    return tab;
}

}  // namespace gatehouse
