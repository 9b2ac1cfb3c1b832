#include "window/tabs/settings_tabs.h"

#include "config/settings_document.h"
#include "window/rules/mod_options.h"
#include "window/tabs/settings_form.h"
#include "window/widgets/follow.h"

#include <QComboBox>
#include <QPushButton>

namespace gatehouse {

namespace {

QPushButton* makeModButton(ModOptions& modOptions) {
    auto* button = new QPushButton(QObject::tr("Mod &Options..."));
    button->setObjectName("modoptions");
    const QString hint = QObject::tr("Settings of the chosen mod itself");
    button->setToolTip(hint);
    button->setAccessibleDescription(hint);
    QObject::connect(button, &QPushButton::clicked, button, [&modOptions] { modOptions.modoptions_Click(); });
    return button;
}

}  // namespace

QWidget* makeServerTab(SettingsDocument& doc, ModOptions& modOptions) {
    // What comes and goes with the game type is last in its column, so that nothing else moves.
    auto* tab = new SettingsForm({
        .left = {{"Welcome", {{doc.q3hostname}, {doc.q3motd}}},
                 {"Game",
                  {{.field = doc.modcombo, .behind = makeModButton(modOptions)},
                   {doc.q3gametype},
                   {.field = doc.fraglimit, .typed = Typed::Number, .title = &doc.fraglabel},
                   {.field = doc.timelimit, .typed = Typed::Number},
                   {doc.q3quadfactor},
                   {doc.q3weaptime},
                   {doc.dowarmup},
                   {doc.warmup},
                   {doc.fgame},
                   {doc.forcebalance},
                   {doc.autojoin}}}},
        .right = {{"Players",
                   {{doc.q3playerlimit},
                    {doc.q3minplayers},
                    {.field = doc.q3serverpass, .lock = &doc.q3usepass},
                    {.field = doc.q3rconpass, .lock = &doc.q3userconpass},
                    {doc.q3allowvote},
                    {doc.q3cheats}}},
                  {"Network",
                   {{doc.q3langame},
                    {doc.q3serverip},
                    {doc.q3serverport},
                    {doc.sv_minping},
                    {doc.sv_maxping},
                    {doc.q3caprate},
                    {doc.q3pure},
                    {doc.sv_allowdownload},
                    {doc.q3clientsync}}},
                  {"Memory", {{doc.q3hunksize}}}},
    });
    auto* mods = tab->findChild<QComboBox*>(QString::fromStdString(doc.modcombo.name()));
    listen(mods, modOptions.modcomboFocusWanted, [mods] { mods->setFocus(Qt::OtherFocusReason); });
    return tab;
}

QWidget* makeVideoTab(SettingsDocument& doc) {
    return new SettingsForm({
        .left = {{"Screen",
                  {{doc.q3vidres}, {doc.q3fullscreen}, {doc.q3colordepth}, {doc.q3brightness}, {doc.q3screensize}}},
                 {"Driver", {{doc.q3GLext}, {doc.r_depthbits}, {doc.q3syncframe}}}},
        .right = {{"Detail",
                   {{doc.q3texquality}, {doc.q3texdetail}, {doc.q3geometry}, {doc.q3lighting}, {doc.q3trilinear}}},
                  {"Effects",
                   {{doc.q3dynamiclight},
                    {doc.q3fastsky},
                    {doc.q3simpleitems},
                    {doc.q3wallmarks},
                    {doc.q3brass},
                    {doc.q3forcemodels}}}},
    });
}

QWidget* makeTweak1Tab(SettingsDocument& doc) {
    return new SettingsForm({
        .left = {{"Mouse and Movement",
                  {{doc.sensitivity}, {doc.cl_mouseaccel}, {doc.m_filter}, {doc.invertmouse}, {doc.cl_run}}},
                 {"Connection", {{doc.q3rate}, {doc.q3snaps}, {doc.cl_motd}}},
                 {"Sound", {{doc.q3soundquality}, {doc.q3a3d}, {doc.q3effectsvol}, {doc.q3musicvol}}}},
        .right = {{"View",
                   {{doc.cg_fov}, {doc.cg_zoomfov}, {doc.cg_draw2d}, {doc.q3identifytarget}, {doc.q3teamoverlay}}},
                  {"Drawing",
                   {{doc.com_maxfps},
                    {doc.cg_shadows},
                    {doc.r_flares},
                    {doc.r_preloadtextures},
                    {doc.r_detailtextures},
                    {doc.r_smp}}}},
    });
}

QWidget* makeTweak2Tab(SettingsDocument& doc) {
    return new SettingsForm({
        .left = {{"Crosshair", {{doc.cg_crosshairsize}, {doc.cg_crosshairx}, {doc.cg_crosshairy}}},
                 {"Railgun",
                  {{doc.r_railwidth}, {doc.r_railcorewidth}, {doc.r_railsegmentlength}, {doc.cg_railtrailtime}}},
                 {"Scene", {{doc.cg_drawgun}, {doc.cg_gibs}, {doc.com_blood}, {doc.r_drawsun}}}},
        .right = {{"Status Bar",
                   {{doc.drawicons}, {doc.cg_draw3dicons}, {doc.cg_drawstatus}, {doc.cg_drawammowarning}}},
                  {"On the Screen",
                   {{doc.cg_drawattacker},
                    {doc.cg_drawrewards},
                    {doc.cg_drawtimer},
                    {doc.cg_drawfps},
                    {doc.cg_drawsnapshot},
                    {doc.cg_lagometer}}}},
    });
}

}  // namespace gatehouse
