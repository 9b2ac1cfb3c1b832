#include "startup/ghtools.h"

#include "base/options.h"
#include "base/run_state.h"
#include "base/text.h"
#include "platform/dialogs.h"
#include "platform/files.h"

#include <string_view>

namespace gatehouse {

namespace {

/// Versions are text of one form, NN.NN.NN, and compare as that. What has another form is no earlier version.
bool isOlder(std::string_view version, std::string_view than) {
    return version.size() == than.size() && version < than;
}

}  // namespace

void VersionUpdate::versionUpdate(const std::string& oldVersion) {
    log_.logEvent("->version update started");
    std::string summary;
    if (isOlder(oldVersion, "00.02.50")) summary += storeFolders();
    if (isOlder(oldVersion, "00.02.55")) summary += offerScan();
    if (summary.empty())
        log_.logEvent("-->no updates required");
    else
        dialogs_.show({.title = "Upgrade Summary",
                       .text = "The following actions were taken upgrading from\r\nGatehouse version " + oldVersion +
                               " to " + run_.VersionString + ":\r\n\r\n" + summary});
    log_.logEvent("->version update finished");
}

std::string VersionUpdate::storeFolders() {
    log_.logEvent("-->older than 00.02.50");
    log_.logEvent("--->updating registry: lastcfg");
    options_.setOption("lastcfg", run_.AppDir + options_.getOption("lastcfg", "default.cfg"));
    log_.logEvent("--->updating registry: ghcdir");
    options_.setOption("ghcdir", run_.AppDir);
    return "  - Updated registry key: LASTCFG\r\n  - Created registry key: GHCDIR\r\n";
}

std::string VersionUpdate::offerScan() {
    const std::string levelShots = run_.AppDir + std::string(kLevelShotsFolder);
    try {
        if (!files_.folderExists(levelShots)) files_.createFolder(levelShots);
    } catch (const RuntimeFailure& failure) {
        log_.logEvent(failure.what(), true);  // no picture is worth the user's options
    }
    const Answer answer =
        dialogs_.show({.title = "Gatehouse Upgrade",
                       .text = "This version of Gatehouse has the ability to scan\r\n"
                               "all your pk3 and map files, extracting new maps, models,\r\n"
                               "and preview pictures. You need to do this if you want\r\n"
                               "to see level or model preview pictures.\r\n\r\nDo you want to do this now?",
                       .buttons = Buttons::YesNo,
                       .icon = Icon::Question});
    std::string told;
    std::string summary = "  - Did not get new maps/models\r\n";
    if (answer != Answer::Yes) {
        log_.logEvent("--->user chose NOT to scan for new maps/models.");
    } else {
        log_.logEvent("--->user chose to scan for new maps/models");
        if (scanForAll()) {
            summary = "  - Scanned for new maps/models\r\n";
            told = "Maps/models extracted Successfully.\r\n\r\n";
        }
    }
    dialogs_.show({.title = "Map & Model Scan Complete.",
                   .text = told + "You can scan for new maps or models at any time\r\n"
                                  "by going to Tools/Options and clicking on either\r\n"
                                  "'Find New Maps' or 'Find New Models."});
    return summary;
}

bool VersionUpdate::scanForAll() {
    try {
        content_.maps.loadStandardMaps();
        content_.maps.loadUserMaps();
        const bool maps = content_.mapScan.run();
        content_.models.loadStandardModels();
        const bool models = content_.modelScan.run();
        content_.models.loadUserModels();
        return maps && models;
    } catch (const RuntimeFailure& failure) {
        log_.logEvent(failure.what(), true);
        return false;
    }
}

}  // namespace gatehouse
