#pragma once

#include "content/content_room.h"
#include "platform/ground.h"

#include <string>

namespace gatehouse {

/// Brings the options and folders of an earlier version up to the present one.
class VersionUpdate {
public:
    VersionUpdate(const Ground& ground, ContentRoom& content)
        : files_(ground.files),
          dialogs_(ground.dialogs),
          log_(ground.log),
          options_(ground.options),
          run_(ground.run),
          content_(content) {}

    /// `oldVersion` has the form NN.NN.NN, and is compared by its characters. Tells the user what was done.
    void versionUpdate(const std::string& oldVersion);

private:
    std::string storeFolders();
    std::string offerScan();
    bool scanForAll();

    Files& files_;
    Dialogs& dialogs_;
    Log& log_;
    Options& options_;
    RunState& run_;
    ContentRoom& content_;
};

}  // namespace gatehouse
