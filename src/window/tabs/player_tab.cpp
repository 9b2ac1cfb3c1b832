#include "base/run_state.h"
#include "config/settings_document.h"
#include "content/model_catalog.h"
#include "window/rules/player_rules.h"
#include "window/tabs/settings_form.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/previews.h"
#include "window/widgets/spin_text.h"
#include "window/widgets/table_view.h"

#include <QHBoxLayout>
#include <QLineEdit>

#include <algorithm>

namespace gatehouse {

namespace {

TableView* makeModelTree(ModelCatalog& models, SettingsDocument& doc, RunState& run) {
    auto* tree = new TableView(new TableModel(
        models.mdltree,
        TableLook<ModelEntry>{.columns = {{"Model", &ModelEntry::text}},
                              .parent = [](const ModelTree& mdltree, int node) { return mdltree.at(node).parent; },
                              .choice = doc.currmodel.title()}));
    tree->setObjectName("mdltree");
    tree->setAccessibleName(QObject::tr("Models and Skins"));
    tree->setHeaderHidden(true);
    QObject::connect(tree, &TableView::rowChosen, tree, [&models, &doc, &run] {
        std::string path = models.selectedModel();
        std::replace(path.begin(), path.end(), '\\', '/');
        doc.currmodel.setText(path);
        run.ConfigChanged = true;
    });
    return tree;
}

/// The buttons count; nothing is typed.
void setStep(const QWidget& form, LabelField& field, std::function<void(int)> step) {
    auto* spin = form.findChild<SpinText*>(QString::fromStdString(field.name()));
    spin->line().setReadOnly(true);
    spin->setStep([&field, step = std::move(step)](int direction) { field.edit([&] { step(direction); }); });
}

}  // namespace

QWidget* makePlayerTab(SettingsDocument& doc, PlayerRules& rules, ModelCatalog& models, RunState& run) {
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
    row->addWidget(makeModelTree(models, doc, run), 2);
    return tab;
}

}  // namespace gatehouse
