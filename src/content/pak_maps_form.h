#pragma once

#include "base/form.h"
#include "base/table.h"
#include "platform/event_loop.h"
#include "platform/ground.h"

#include <optional>
#include <string>
#include <vector>

namespace gatehouse {

/// A map in an archive.
struct PakMap {
    std::string name;   ///< upper-cased
    std::string entry;  ///< whole name in the archive
};

/// The dialog `q3pakmaps`: the choice of one of an archive's maps.
class PakMapsForm {
public:
    explicit PakMapsForm(const Ground& ground) : events_(ground.events) {}

    Form q3pakmaps{"q3pakmaps"};
    Table<PakMap> paklist;
    static constexpr std::string_view q3paktype = "BSP";  ///< the one kind that can be chosen

    /// Shows the maps and returns the chosen one, or nothing.
    std::optional<PakMap> choose(std::vector<PakMap> maps);

    /// A double click on a row as well.
    void pakOK_Click();
    /// Escape and the title bar's close button as well.
    void pakcancel_Click() { q3pakmaps.set(false); }

    void restoreDesign() {
        chosen_.reset();
        paklist.clear();
    }

private:
    EventLoop& events_;
    std::optional<PakMap> chosen_;
};

}  // namespace gatehouse
