#pragma once

#include "base/command_flags.h"
#include "base/log.h"
#include "base/run_state.h"
#include "base/signal.h"
#include "config/rotation.h"
#include "content/map_catalog.h"
#include "platform/ground.h"

#include <string>
#include <string_view>

namespace gatehouse {

/// The commands on the two panes of the Maps tab: `maptree`, the catalog, and `maplist`, the rotation. The current row
/// of each is the one selected.
class RotationRules {
public:
    RotationRules(const Ground& ground, Rotation& maplist, MapCatalog& maps)
        : maplist_(maplist),
          maps_(maps),
          maptree_(maps.maptree),
          flags_(ground.flags),
          run_(ground.run),
          log_(ground.log) {}

    /// The pane that had the input focus last, "TREE" or "LIST"; empty at first.
    std::string focusPane;
    static constexpr std::string_view kTree = "TREE";
    static constexpr std::string_view kList = "LIST";

    void maptree_GotFocus() { focusPane = kTree; }
    void maplist_GotFocus() { focusPane = kList; }
    /// A pane, "TREE" or "LIST", asks for the input focus.
    Signal<std::string_view> focusWanted;

    /// Puts the selected map into the rotation, only while the tree has the focus, and walks on to the next.
    void addToRotation() {
        maplist_.edits.make("Add Map", [this] { add(); });
    }
    /// Takes the selected row out, only while the list has the focus. The last map of all stays marked as used.
    void removeFromRotation() {
        maplist_.edits.make("Remove Map", [this] { remove(); });
    }
    void moveUp() {
        maplist_.edits.make("Move Map Up", [this] { move(-1, "up"); });
    }
    void moveDown() {
        maplist_.edits.make("Move Map Down", [this] { move(1, "down"); });
    }

    /// The rotation is another one: sets what can be done with it.
    void rotationRestored();
    void giveFocus(std::string_view pane);
    void restoreDesign() { focusPane.clear(); }

private:
    void add();
    void remove();
    void selectNextMap();
    void sortAndFocus();
    void move(int step, std::string_view word);

    Rotation& maplist_;
    MapCatalog& maps_;
    MapTree& maptree_;
    CommandFlags& flags_;
    RunState& run_;
    Log& log_;
};

}  // namespace gatehouse
