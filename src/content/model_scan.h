#pragma once

#include "content/archive_scan.h"
#include "content/line_appender.h"
#include "content/model_catalog.h"
#include "platform/pictures.h"

#include <cstdint>
#include <string>
#include <unordered_set>

namespace gatehouse {

/// The scan `q3getmdl`: adds the skins that are new to `usermdls.txt`, and icons as BMP files to the program folder,
/// from the archives in `baseq3` but the game's own. The tree stays as it is.
class ModelScan : public ArchiveScan {
public:
    ModelScan(const Ground& ground, Archives& archives, Pictures& pictures, const ModelCatalog& models);

private:
    bool scan() override;
    void learnKnown();
    void countModels(const Opened& opened);
    void takeSkins(const Opened& opened, LineAppender& usermdls);
    void takeIcons(const Opened& opened);
    void takeIcon(const Opened& opened, const std::string& entry);
    EntryFault readIcon(const Opened& opened, const std::string& entry, Picture& icon);

    Pictures& pictures_;
    const ModelCatalog& models_;
    std::unordered_set<std::string> knownModels_;  ///< in lower case
    std::unordered_set<std::string> knownSkins_;   ///< model, "/" and skin, in lower case
    std::int16_t newModels_ = 0;
    std::int16_t newSkins_ = 0;
    std::int16_t newPreviews_ = 0;
};

}  // namespace gatehouse
