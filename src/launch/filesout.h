#pragma once

#include "base/log.h"
#include "config/document_host.h"
#include "config/settings_document.h"
#include "mods/aliases.h"
#include "mods/mod_table.h"
#include "platform/files.h"
#include "platform/random.h"

#include <memory>
#include <string>
#include <utility>

namespace gatehouse {

/// The text of `gatehouse.cfg`: the document as a console script of the game. What can't be converted fails, and
/// what was written before stays in the file.
class GameConfig {
public:
    /// What the text is made of.
    struct Sources {
        const SettingsDocument& doc;
        const ModTable& mods;
        const DocumentHost& host;
        AliasBook& aliases;
        Random& random;
        Log& log;
    };

    explicit GameConfig(const Sources& sources) : from_(sources) {}

    /// Takes the file to write to.
    void open(std::unique_ptr<TextWriter> file) { CfgStream_ = std::move(file); }
    /// Fails when the rest can't be written.
    void close();
    /// Lets go of the file as it is, without a word.
    void abandon() { CfgStream_.reset(); }

    /// Writes a line of the caller's own.
    void writeLine(const std::string& line) { CfgStream_->writeLine(line); }
    void WriteHeader();
    void WriteServerVars();
    /// Header and the display variables that a timed demo depends on.
    void WriteBenchmarkVars();
    void WritePlayerVars();
    void WriteKeyBindings();
    void WriteFooter();

private:
    void writeTitle(const std::string& title);
    void writeLimits();
    void writeModBlock(bool ModOption::*side);
    void writeRotation();
    void writeBots();
    void writeRandomBots();

    Sources from_;
    std::unique_ptr<TextWriter> CfgStream_;
};

}  // namespace gatehouse
