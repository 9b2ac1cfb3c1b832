#pragma once

#include "base/edits.h"
#include "platform/ground.h"
#include "servers/favourites.h"
#include "servers/server_entry.h"
#include "servers/server_numbers.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace gatehouse {

/// How changes of the server list are taken back. A row that comes back has what was known of it when it went.
class ServerUndo {
public:
    ServerUndo(const Ground& ground, ServerTable& iplist, ServerNumbers& numbers, Favourites& favourites)
        : ground_(ground), iplist_(iplist), numbers_(numbers), favourites_(favourites) {}

    EditJournal journal;

    /// Runs what takes out the rows for which `goes` holds, as one step of that name, or as a part of the step under way.
    void removing(const std::string& name, const std::function<bool(int)>& goes, const std::function<void()>& remove);
    /// Runs what adds rows at the end, in the same way.
    void adding(const std::string& name, const std::function<void()>& add);
    /// Makes addresses favourites, or takes that away. Only those are to be given that change.
    void setFavourites(const std::string& name, const std::vector<std::string>& addresses, bool favourite);

private:
    using Rows = std::vector<std::pair<int, ServerEntry>>;  ///< with their positions
    Rows taken(const std::function<bool(int)>& which);
    void noteRows(Rows rows, bool wereThere);
    void putBack(const Rows& rows);
    void takeOut(const Rows& rows);
    void listChanged();

    Ground ground_;
    ServerTable& iplist_;
    ServerNumbers& numbers_;
    Favourites& favourites_;
};

}  // namespace gatehouse
