#pragma once

#include "platform/archives.h"

namespace gatehouse {

/// Zip archives of this machine, by paths in the program's form. What an archive claims is not trusted: it writes below
/// the target folder only, never through a link, and an entry of more than 1 GiB is refused.
class ZipArchives : public Archives {
public:
    /// Names longer than 4096 bytes are passed over.
    bool list(const std::string& archive, const std::function<void(const std::string&)>& onEntry) override;
    /// The entry's exact name first, then the name without regard to case. `folder` must exist.
    bool extract(const std::string& archive, const std::string& entry, const std::string& folder) override;
};

}  // namespace gatehouse
