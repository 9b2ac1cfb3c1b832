// The user's map list: what is read, written and read again is the same.

#include "content/map_catalog.h"

#include "base/run_state.h"
#include "base/runtime_failure.h"
#include "fuzz.h"
#include "support/core/fakes.h"

#include <vector>

namespace {

using namespace gatehouse;

const std::string kPath = "C:\\gh\\usermaps.txt";

struct Desk {
    explicit Desk(const std::string& text) {
        run.AppDir = "C:\\gh\\";
        world.files.put(kPath, text);
        catalog.loadStandardMaps();
        catalog.loadUserMaps();
    }
    std::vector<std::string> texts() const {
        std::vector<std::string> all;
        for (const MapEntry& node : catalog.maptree.rows()) all.push_back(node.key + " " + node.text);
        return all;
    }

    fake::World world;
    RunState& run = world.run;
    MapCatalog catalog{world.ground};
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        Desk first(fuzz::textOf(data, size));
        first.catalog.saveUserMaps();
        const std::string saved = first.world.files.content(kPath);
        Desk second(saved);
        fuzz::require(second.texts() == first.texts(), "all maps come back");
        second.catalog.saveUserMaps();
        fuzz::require(second.world.files.content(kPath) == saved, "the file comes back");
    } catch (const RuntimeFailure&) {
        // More maps than a tree holds.
    }
    return 0;
}
