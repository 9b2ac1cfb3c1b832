#pragma once

#include <functional>
#include <string>

namespace gatehouse {

/// Zip archives (a pk3 is one).
class Archives {
public:
    virtual ~Archives() = default;
    /// Calls `onEntry` once for each entry with its whole name as stored. False, and no call, for an archive that can't
    /// be read.
    virtual bool list(const std::string& archive, const std::function<void(const std::string&)>& onEntry) = 0;
    /// Writes one entry below the folder, with its stored folders, over any file of that name. False if the entry is
    /// missing or damaged, or would land outside of the folder.
    virtual bool extract(const std::string& archive, const std::string& entry, const std::string& folder) = 0;
};

}  // namespace gatehouse
