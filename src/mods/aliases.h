#pragma once

#include "base/log.h"
#include "base/run_state.h"
#include "config/bindings.h"
#include "platform/files.h"
#include "platform/ground.h"

#include <string>

namespace gatehouse {

/// The user's own console scripts in `aliases.txt`. Each of their keys is a row of the key list; a script whose keys
/// are all bound goes into the game.
class AliasBook {
public:
    AliasBook(const Ground& ground, BindingTable& bindlist)
        : files_(ground.files), log_(ground.log), run_(ground.run), bindlist_(bindlist) {}

    /// Adds a row for each key of each script. A missing file costs a log line; a name or label without its two quotes
    /// fails with its line.
    void loadAliases();
    /// Makes `ghaliases.cfg` and writes the lines that run it. Fails without `aliases.txt`, and where a script names a
    /// key that has no row.
    void WriteAliases(TextWriter& CfgStream);

private:
    std::string path() const;
    void writeScripts(TextReader& source, TextWriter& target) const;

    Files& files_;
    Log& log_;
    const RunState& run_;
    BindingTable& bindlist_;
};

}  // namespace gatehouse
