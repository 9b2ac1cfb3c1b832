// The user's models in `usermdls.txt`: every line is a skin under its model, or is passed over.

#include "base/run_state.h"
#include "base/text.h"
#include "content/model_catalog.h"
#include "fuzz.h"
#include "support/core/fakes.h"

#include <string>

using namespace gatehouse;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = fuzz::textOf(data, size);
    fake::World world;
    world.run.AppDir = "C:\\gh\\";
    world.files.put("C:\\gh\\usermdls.txt", text);
    ModelCatalog catalog(world.ground);
    catalog.loadStandardModels();
    const int before = catalog.mdltree.count();
    catalog.loadUserModels();

    int skins = 0;
    for (const std::string& line : splitLines(text)) skins += line.find('/') != std::string::npos;
    int found = 0;
    for (int position = before + 1; position <= catalog.mdltree.count(); ++position) {
        const ModelEntry& node = catalog.mdltree.at(position);
        found += node.parent != 0;
        fuzz::require(node.parent >= 0 && node.parent < position, "a skin stands behind its model");
        if (node.parent != 0) fuzz::require(catalog.mdltree.at(node.parent).parent == 0, "skins have no skins");
    }
    fuzz::require(found == skins, "every line with a slash is a skin");
    fuzz::require(catalog.selectedModel() == "Sarge\\Default", "the selection stays");
    return 0;
}
