#pragma once

#include "base/field.h"
#include "base/form.h"
#include "base/log.h"
#include "base/observable.h"
#include "base/signal.h"
#include "base/table.h"
#include "platform/event_loop.h"
#include "platform/ground.h"
#include "servers/server_entry.h"
#include "servers/server_numbers.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace gatehouse {

/// One row of the players dialog. All columns are texts.
struct PlayerRow {
    std::string Name;   ///< without colours
    std::string Frags;  ///< right-aligned in five characters
    std::string Ping;
};

using PlayerTable = Table<PlayerRow>;

inline constexpr int kFragsColumn = 1;

/// The text of a column, from 0. Fails for a column that isn't there.
const std::string& playerColumn(const PlayerRow& row, int column);

/// The players of a status reply.
struct PlayersOfReply {
    std::vector<PlayerRow> players;
    bool broken = false;  ///< a line was no player's: it and what stands behind it was left
};

/// Reads the players that stand behind the second line of a reply; nothing if the reply ends before.
std::optional<PlayersOfReply> playersOf(std::string_view reply);

/// The dialog `q3players`: who plays on the current server.
class PlayersForm {
public:
    PlayersForm(const Ground& ground, ServerTable& iplist, ServerNumbers& numbers);
    PlayersForm(const PlayersForm&) = delete;
    PlayersForm& operator=(const PlayersForm&) = delete;

    /// Asks the server in that row once more; what it answers comes by the row.
    std::function<void(int row)> askAgain;

    /// Whether the dialog is on show.
    Form q3players{"q3players"};
    Observable<std::string> caption{std::string(kDesignCaption)};
    PlayerTable playerlist;
    FieldGroup group{"q3players"};
    CheckField playersagain{group,
                            {.name = "playersagain",
                             .caption = "Refresh by itself",
                             .hint = "Asks the server again every five seconds while this window is open."}};
    /// Since when the server has been silent; empty for one that answers.
    Observable<std::string> silence;

    /// Fills the dialog from the current server's last reply and shows it until it is closed. A server that has told
    /// nothing about players doesn't bring it up.
    void showPlayers();
    void plistclose_Click() { q3players.set(false); }
    /// Asks the server now.
    void plistrefresh_Click();

    /// Puts the dialog back to where it is before its first showing.
    void restoreDesign();

private:
    static constexpr std::string_view kDesignCaption = "Players on X";

    bool q3players_Activate();
    bool fill(const ServerEntry& server);
    void rowChanged(int row);
    void watch();

    static constexpr int kAgainMilliseconds = 5000;

    ServerTable& iplist_;
    ServerNumbers& numbers_;
    std::unique_ptr<Timer> again_;
    std::uint32_t server_ = 0;  ///< number of the one on show
    std::string reply_;         ///< of which the players are on show
    Connections follow_;
    EventLoop& events_;
    Log& log_;
};

}  // namespace gatehouse
