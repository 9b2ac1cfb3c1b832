#pragma once

#include "base/command_flags.h"
#include "base/run_state.h"
#include "config/filescfg.h"
#include "config/settings_document.h"
#include "startup/option_store.h"
#include "startup/options.h"
#include "support/core/fake_host.h"
#include "support/core/fakes.h"
#include "window/rules/server_rules.h"

#include <string>
#include <vector>

namespace gatehouse::fake {

/// A document with its rules and its files, over fake services: two mods of four game types, no mod chosen yet.
struct DocumentDesk {
    DocumentDesk() {
        options.ghcdir.setText("C:\\gh\\");
        world.files.addFolder("C:\\gh");
        fillBindings(doc.bindlist);
        doc.markChanges(run);
        doc.modcombo.changed.connect([this] { chooseMod(); });
        doc.modcombo.setChoices({{"Quake 3: Arena", 1}, {"Other Mod", 2}});
        run.CurrentConfigPath = kPath;
    }

    void chooseMod() {
        doc.q3gametype.setChoices(gameTypes);
        if (!gameTypes.empty()) doc.q3gametype.setIndex(0);
    }

    /// Loads the lines as a document of their own.
    bool load(const std::vector<std::string>& lines) {
        world.files.put(kPath, crlf(lines));
        return documents.loadConfig(kPath);
    }
    /// Saves and returns what the file then holds.
    std::string save(const std::string& path = kPath) {
        documents.writeConfig(path);
        return world.files.content(path);
    }

    static inline const std::string kPath = "C:\\gh\\My.ghc";

    World world;
    RunState& run = world.run;
    CommandFlags& flags = world.flags;
    OptionsForm options;
    OptionStore& store = world.store;
    SettingsDocument doc;
    FakeHost host;
    std::vector<Choice> gameTypes{{"Free For All", 0}, {"Tournament", 1}, {"Teamplay", 3}, {"CTF!", 4}};
    ServerRules rules{world.ground, doc};
    ConfigDocuments documents{{world.ground, doc, host, options.ghcdir, options.q3overwrite}};
};

}  // namespace gatehouse::fake
