#include "window/tabs/settings_tabs.h"

#include "config/settings_document.h"
#include "window/rules/mod_options.h"
#include "window/tabs/settings_form.h"
#include "window/widgets/command_views.h"
#include "window/widgets/follow.h"

#include <QComboBox>
#include <QPushButton>

namespace gatehouse {

namespace {

QPushButton* makeModButton(ModOptions& modOptions) {
    QPushButton* button = makeCommandButton("modoptions");
    QObject::connect(button, &QPushButton::clicked, button, [&modOptions] { modOptions.modoptions_Click(); });
    return button;
}

}  // namespace

QWidget* makeServerTab(SettingsDocument& doc, ModOptions& modOptions) {
    auto* tab =
        new SettingsForm(planOf(doc.server, {{.field = doc.modcombo, .behind = makeModButton(modOptions)},
                                             {.field = doc.fraglimit, .typed = Typed::Number, .title = &doc.fraglabel},
                                             {.field = doc.timelimit, .typed = Typed::Number},
                                             {.field = doc.q3serverpass, .lock = &doc.q3usepass},
                                             {.field = doc.q3rconpass, .lock = &doc.q3userconpass}}));
    auto* mods = tab->findChild<QComboBox*>(QString::fromStdString(doc.modcombo.name()));
    listen(mods, modOptions.modcomboFocusWanted, [mods] { mods->setFocus(Qt::OtherFocusReason); });
    return tab;
}

QWidget* makeSettingsTab(const FieldGroup& group) { return new SettingsForm(planOf(group)); }

}  // namespace gatehouse
