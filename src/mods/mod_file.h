#pragma once

#include "mods/mod_table.h"
#include "platform/files.h"

#include <string>

namespace gatehouse {

/// Reads a mod definition file (`.ghm`) into an entry. False if a line is at fault or the file can't be read: the
/// entry is then to be dropped. A missing file leaves the entry blank and gives true.
bool parseModFile(Files& files, const std::string& path, ModEntry& entry);

}  // namespace gatehouse
