#pragma once

#include "base/field.h"
#include "base/log.h"
#include "base/run_state.h"
#include "base/signal.h"
#include "launch/command_line.h"
#include "launch/filesout.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/ground.h"
#include "platform/processes.h"
#include "servers/server_entry.h"

#include <memory>
#include <string>

namespace gatehouse {

/// The one command that starts the game, whoever gave it.
class RunCommand {
public:
    /// What the command works with.
    struct Parts : Ground {
        Processes& processes;
        const SettingsDocument& doc;
        const ModTable& mods;
        const ServerTable& iplist;
        const ListField& q3runoptions;
        const TextField& extracmdline;
        const TextField& q3FilePath;
        GameConfig& gameConfig;
    };

    explicit RunCommand(const Parts& parts);

    /// The fourth mode runs a loop of its own.
    Signal<> benchmarkWanted;

    /// Makes the two launch files of the current mode and, as the user's option tells, starts the game. A failure ends
    /// the command with an error box and sets `RunErrors`; the program lives.
    void mfilerun_Click();

private:
    void makeConfig();
    /// The part of the config and the command line that depends on the mode.
    void writeMode();
    void makeBatchFile();
    /// Whether to start the game; asks where the option says so.
    bool launchWanted();
    void launch(const std::string& Comspec);

    std::string launchFile(const std::string& extension) const;
    std::unique_ptr<TextWriter> create(const std::string& path);
    std::string selectedAddress() const;
    void fail(const std::string& reason);

    Parts with_;
    CommandLine commandLine_;
};

}  // namespace gatehouse
