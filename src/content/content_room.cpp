#include "content/content_room.h"

#include "base/run_state.h"
#include "platform/dialogs.h"

#include <algorithm>

namespace gatehouse {

ContentRoom::ContentRoom(const Ground& ground, const Services& services, SettingsDocument& doc,
                         Observable<std::string>& q3status)
    : maps(ground),
      models(ground),
      mapScan(ground, services.archives, maps, q3status),
      modelScan(ground, services.archives, services.pictures, models),
      mapCommands(ground, services.archives, maps, mapScan),
      preview(ground, services.pictures, maps.maptree, models),
      dialogs_(ground.dialogs),
      run_(ground.run),
      doc_(doc) {
    for (Form* form : {&mapCommands.pakMaps.q3pakmaps, &mapScan.view.q3scan, &modelScan.view.q3scan}) has(*form);
    follow_.on(maps.walked, [this] { preview.followMap(); });
    restores(preview, mapCommands.pakMaps, maps.maptree, models.mdltree);
}

void ContentRoom::selectModel(const std::string& path) {
    if (models.selectModel(path)) showChoice();
}

void ContentRoom::showChoice() {
    std::string choice = models.selectedModel();
    std::replace(choice.begin(), choice.end(), '\\', '/');
    doc_.currmodel.setText(choice);
}

void ContentRoom::mdltree_NodeClick() {
    showChoice();
    run_.ConfigChanged = true;
    preview.showSkin();
}

void ContentRoom::ptool1_ButtonClick() {
    if (modelScan.view.q3scan.get()) return;
    const Answer answer = dialogs_.show({.title = "Model Search",
                                         .text = "Gatehouse can scan your Quake 3 folders for new\r\n"
                                                 "models & skins. This may take a minute or two if\r\n"
                                                 "there are many new models or skins.\r\n\r\n"
                                                 "Do you want to do this now?",
                                         .buttons = Buttons::YesNo,
                                         .icon = Icon::Question});
    if (answer != Answer::Yes) return;
    // The choice is the document's: it must hold for whoever saves that while the scan goes on.
    modelScan.run();
    const bool changed = run_.ConfigChanged;
    const std::string choice = models.mdltree.current() == 0 ? std::string() : models.selectedModel();
    models.loadStandardModels();
    models.loadUserModels();
    if (!models.selectModel(choice)) showChoice();
    run_.ConfigChanged = changed;
}

}  // namespace gatehouse
