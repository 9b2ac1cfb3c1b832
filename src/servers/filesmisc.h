#pragma once

#include "base/command_flags.h"
#include "base/field.h"
#include "base/log.h"
#include "base/run_state.h"
#include "base/signal.h"
#include "platform/files.h"
#include "platform/ground.h"
#include "servers/server_entry.h"

#include <string>

namespace gatehouse {

/// The `.ghs` files: lists of servers, kept in the folder that the option `ghcdir` names, or anywhere by their whole
/// paths. No failure here goes beyond the log, but for a list that can't be saved: that is told.
class ServerLists {
public:
    ServerLists(const Ground& ground, const TextField& ghcdir, ServerTable& iplist)
        : files_(ground.files),
          dialogs_(ground.dialogs),
          log_(ground.log),
          run_(ground.run),
          flags_(ground.flags),
          ghcdir_(ghcdir),
          iplist_(iplist) {}

    /// Replaces the rows by those of a file, sorted by ping. A missing file puts "default.ghs" into `name` and is
    /// replaced by that. `name` may be the run's `CurrentServerList` itself.
    void LoadServerList(std::string& name);
    /// Writes all rows, in the order on show. A failure is logged and told; the old file and the flag stay.
    void SaveServerList(const std::string& name);
    /// What a file of the list in its present order holds.
    std::string fileText() const;

    /// Other rows are in the table than before: those of a file.
    Signal<> loaded;

private:
    void load(std::string& name);
    std::string pathOf(const std::string& name) const;
    void readRows(TextReader& file);
    void enableRowButtons(bool enabled);
    /// Whether to write over a list of which only a part is in the table.
    bool overwriteWanted(const std::string& name);
    void tellFailure(const FileFailure& failure);

    Files& files_;
    Dialogs& dialogs_;
    Log& log_;
    RunState& run_;
    CommandFlags& flags_;
    const TextField& ghcdir_;
    ServerTable& iplist_;
    std::string readInPart_;  ///< name of the list of which the rest is on the disk alone
};

}  // namespace gatehouse
