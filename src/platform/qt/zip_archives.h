#pragma once

#include "platform/archives.h"

namespace gatehouse {

/// Zip archives of this machine, by paths in the program's form.
class ZipArchives : public Archives {
public:
    std::unique_ptr<Archive> open(const std::string& path) override;
    EntryFault store(const std::string& bytes, const std::string& entry, const std::string& folder) override;
};

}  // namespace gatehouse
