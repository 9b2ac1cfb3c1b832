#pragma once

#include "base/log.h"
#include "base/run_state.h"
#include "config/settings_document.h"
#include "mods/mod_table.h"

namespace gatehouse {

/// Builds `LaunchCommand`, piece by piece.
class CommandLine {
public:
    CommandLine(RunState& run, const SettingsDocument& doc, const ModTable& mods, Log& log)
        : run_(run), doc_(doc), mods_(mods), log_(log) {}

    /// Starts the line anew with the program and the user's own options.
    void begin(const std::string& gameProgram, const std::string& extracmdline);
    /// Appends the server's options.
    void BuildServerCommandLine();
    /// Appends the client's options.
    void BuildClientCommandLine();
    /// Appends the server to connect to.
    void connectTo(const std::string& address);

private:
    void append(const std::string& option, const std::string& value);
    void appendConfig();

    RunState& run_;
    const SettingsDocument& doc_;
    const ModTable& mods_;
    Log& log_;
};

}  // namespace gatehouse
