// The scripts of aliases.txt: their keys as rows, and the scripts as they go into the game.

#include "mods/aliases.h"

#include "base/runtime_failure.h"
#include "base/text.h"
#include "fuzz.h"
#include "support/core/fakes.h"

#include <string_view>

namespace {

using namespace gatehouse;

const std::string kScripts = "C:\\q3\\baseq3\\ghaliases.cfg";
constexpr std::string_view kButton = "mouse1";

struct Desk {
    explicit Desk(const std::string& text) {
        run.AppDir = "C:\\gh\\";
        run.GameDir = "C:\\q3\\";
        world.files.put("C:\\gh\\aliases.txt", text);
        world.files.addFolder("C:\\q3\\baseq3");
        aliases.loadAliases();
    }

    /// Binds every n-th row.
    void bindEvery(int step) {
        for (int row = step; row <= bindlist.count(); row += step)
            bindlist.update(row, [](KeyBinding& binding) { binding.tag = kButton; });
    }
    void write() {
        const auto config = world.files.createText("C:\\q3\\baseq3\\gatehouse.cfg");
        aliases.WriteAliases(*config);
    }
    bool wroteScripts() const { return !world.files.content(kScripts).empty(); }

    fake::World world;
    RunState& run = world.run;
    BindingTable bindlist;
    AliasBook aliases{world.ground, bindlist};
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        Desk desk(fuzz::textOf(data, size));
        desk.write();
        fuzz::require(!desk.wroteScripts(), "no script goes into the game before a key of it is bound");
        desk.bindEvery(2);
        desk.write();
        desk.bindEvery(1);
        desk.write();
    } catch (const RuntimeFailure&) {
        // A name without its quotes, or a key that the list doesn't have.
    }
    return 0;
}
