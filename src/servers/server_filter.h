#pragma once

#include "base/field.h"
#include "base/observable.h"
#include "base/signal.h"
#include "servers/favourites.h"
#include "servers/server_entry.h"

#include <optional>
#include <string>
#include <string_view>

namespace gatehouse {

/// Which rows of a table of servers are to be seen. Rows stay where they are and what they are: the filter hides them,
/// and takes them out of the selection, so that no command reaches what nobody sees. It works when its fields change and
/// when it is told to, and never moves a row by itself while answers come in.
class ServerFilter {
public:
    /// Its fields belong to the group of that name. Both others must outlive it.
    ServerFilter(std::string_view name, ServerTable& servers, const Favourites& favourites);
    ServerFilter(const ServerFilter&) = delete;
    ServerFilter& operator=(const ServerFilter&) = delete;

    FieldGroup fields;
    TextField filtertext{fields,
                         {.name = "filtertext",
                          .caption = "Filter:",
                          .hint = "Shows only servers with this text in one of their columns."}};
    ListField filtergame{fields,
                         {.name = "filtergame", .caption = "Game:", .hint = "Shows only servers that play this game."},
                         {std::string(kAnyGame)},
                         0};
    ListField filtermod{fields,
                        {.name = "filtermod", .caption = "Mod:", .hint = "Shows only servers that run this mod."},
                        {std::string(kAnyMod)},
                        0};
    CheckField filterplayers{
        fields, {.name = "filterplayers", .caption = "Has players", .hint = "Hides servers on which nobody plays."}};
    CheckField filterfree{
        fields, {.name = "filterfree", .caption = "Not full", .hint = "Hides servers without a free place."}};
    CheckField filtersilent{fields,
                            {.name = "filtersilent",
                             .caption = "Hide silent",
                             .hint = "Hides servers that did not answer when they were asked last."}};
    CheckField filterfavourites{fields,
                                {.name = "filterfavourites",
                                 .caption = "Favourites",
                                 .hint = "Shows only the servers that you have marked as favourites."}};

    /// Something is hidden, or would be.
    Observable<bool> active{false};
    /// Such as "12 of 120 shown"; empty without a filter.
    Observable<std::string> summary;

    /// Hides and shows rows by what they are now.
    void apply();
    /// Offers the games and mods that the rows have now.
    void offerChoices();
    /// Nothing is hidden any more.
    void clear();
    void restoreDesign() { clear(); }

private:
    static constexpr std::string_view kAnyGame = "Any game";
    static constexpr std::string_view kAnyMod = "Any mod";

    bool matches(const ServerEntry& server, const std::string& wanted) const;
    void keepCurrentInSight();

    ServerTable& servers_;
    const Favourites& favourites_;
    bool quiet_ = false;  ///< several fields change at once
    Connections follow_;
};

/// Players on a server and its places, of the column `Players`; nothing if it doesn't tell.
struct Crowd {
    int players = 0;
    int places = 0;
};
std::optional<Crowd> crowdOf(const ServerEntry& server);

}  // namespace gatehouse
