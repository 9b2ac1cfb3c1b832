#pragma once

#include "content/archive_scan.h"
#include "content/description_scan.h"
#include "content/line_appender.h"
#include "content/map_catalog.h"

#include <cstdint>
#include <string>
#include <unordered_set>

namespace gatehouse {

/// The scan `q3getmaps`: adds the maps that the catalog doesn't know to `usermaps.txt`, and their level shots to the
/// program folder, from the archives in `baseq3` and from `baseq3\maps`. The tree stays as it is: who wants to see what
/// was found loads it anew.
class MapScan : public ArchiveScan {
public:
    MapScan(const Ground& ground, Archives& archives, const MapCatalog& maps, Observable<std::string>& q3status);

    DescriptionScan descriptions;

private:
    bool scan() override;
    void takeMaps(const Opened& opened, LineAppender& usermaps);
    void takeMap(const Opened& opened, const std::string& entry, LineAppender& usermaps);
    void takeLevelShots(const Opened& opened);
    void takeLooseMaps(LineAppender& usermaps);
    void takeLooseMap(const FolderEntry& file, LineAppender& usermaps);
    void copyLevelShot(const std::string& name, const std::string& file);
    void write(LineAppender& usermaps, const std::string& name, const std::string& description);
    void deleteExtracted();

    const MapCatalog& maps_;
    std::unordered_set<std::string> known_;   ///< names
    std::unordered_set<std::string> listed_;  ///< whole lines
    std::int16_t newMaps_ = 0;
    std::int16_t newPreviews_ = 0;
};

}  // namespace gatehouse
