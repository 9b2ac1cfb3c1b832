#pragma once

#include "base/signal.h"
#include "platform/ground.h"

#include <set>
#include <string>
#include <vector>

namespace gatehouse {

/// The servers that a person likes, by their addresses, whichever list they stand in. Kept in `favourites.txt` in the
/// program folder, an address a line, and written with each change.
class Favourites {
public:
    explicit Favourites(const Ground& ground) : ground_(ground) {}

    bool contains(const std::string& address) const;
    /// Adds addresses or takes them away. What the disk refuses is told, and holds for this run.
    void set(const std::vector<std::string>& addresses, bool favourite);

    Signal<> changed;

    static constexpr std::string_view kFile = "favourites.txt";

private:
    void load() const;
    void save();

    Ground ground_;
    mutable bool loaded_ = false;  ///< the file is read when it is first asked for
    mutable std::set<std::string> addresses_;  ///< in lower case
};

}  // namespace gatehouse
