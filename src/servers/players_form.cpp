#include "servers/players_form.h"

#include "base/text.h"
#include "platform/forms.h"
#include "servers/status_reply.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace gatehouse {

namespace {

constexpr std::size_t kFragsWidth = 5;
constexpr char kColourMark = '^';

constexpr std::array<std::string PlayerRow::*, 3> kColumns = {&PlayerRow::Name, &PlayerRow::Frags, &PlayerRow::Ping};

/// Every mark counts, whatever follows it, so a doubled one hides the next.
std::string withoutColours(std::string_view name) {
    std::string bare;
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (name[i] == kColourMark)
            ++i;
        else
            bare += name[i];
    }
    return bare;
}

/// Takes what stands before `mark` off the front, with the mark; nothing if there is no mark.
std::optional<std::string_view> takeUpTo(std::string_view& text, char mark) {
    const auto at = text.find(mark);
    if (at == std::string_view::npos) return std::nullopt;
    const auto taken = text.substr(0, at);
    text.remove_prefix(at + 1);
    return taken;
}

/// A line of score, blank, ping, blank and a name in double quotes; a name ends at its first quotation mark.
std::optional<PlayerRow> parsePlayer(std::string_view line) {
    const auto score = takeUpTo(line, ' ');
    if (!score || score->size() > kFragsWidth) return std::nullopt;
    const auto ping = takeUpTo(line, ' ');
    if (!ping || !line.starts_with('"')) return std::nullopt;
    line.remove_prefix(1);
    const auto name = takeUpTo(line, '"');
    if (!name) return std::nullopt;
    return PlayerRow{.Name = oneLine(withoutColours(*name)),
                     .Frags = padLeft(oneLine(std::string(*score)), kFragsWidth),
                     .Ping = oneLine(std::string(*ping))};
}

}  // namespace

const std::string& playerColumn(const PlayerRow& row, int column) {
    if (column < 0 || column >= static_cast<int>(kColumns.size()))
        throw RuntimeFailure("Index out of bounds: player column " + std::to_string(column));
    return row.*kColumns[static_cast<std::size_t>(column)];
}

std::optional<PlayersOfReply> playersOf(std::string_view reply) {
    std::string_view rest = reply;
    if (!takeUpTo(rest, '\n') || !takeUpTo(rest, '\n')) return std::nullopt;
    PlayersOfReply found;
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        auto player = parsePlayer(line);
        if (!player) {
            found.broken = true;
            break;
        }
        found.players.push_back(std::move(*player));
    }
    return found;
}

PlayersForm::PlayersForm(const Ground& ground, ServerTable& iplist, ServerNumbers& numbers)
    : iplist_(iplist),
      numbers_(numbers),
      again_(ground.events.createTimer([this] { plistrefresh_Click(); })),
      events_(ground.events),
      log_(ground.log) {
    again_->setInterval(kAgainMilliseconds);
    follow_.on(iplist.rowChanged, [this](int row) { rowChanged(row); });
    follow_.on(q3players.changed, [this] { watch(); });
    follow_.on(playersagain.changed, [this] { watch(); });
}

void PlayersForm::watch() { again_->setEnabled(q3players.get() && playersagain.value() != 0); }

void PlayersForm::plistrefresh_Click() {
    const int row = server_ == 0 ? 0 : numbers_.rowOf(server_);
    if (row != 0 && askAgain) askAgain(row);
}

void PlayersForm::rowChanged(int row) {
    if (!q3players.get() || row > iplist_.count() || iplist_.at(row).number != server_) return;
    const ServerEntry& server = iplist_.at(row);
    silence.set(server.SilentSince);
    if (server.StatusReply != reply_) fill(server);
}

void PlayersForm::showPlayers() {
    if (q3players_Activate()) showModal(q3players, events_);
}

bool PlayersForm::q3players_Activate() {
    if (iplist_.current() == 0) return false;
    server_ = numbers_.of(iplist_.current());
    return fill(iplist_.at(iplist_.current()));
}

bool PlayersForm::fill(const ServerEntry& server) {
    auto found = playersOf(server.StatusReply);
    if (!found) return false;
    reply_ = server.StatusReply;
    silence.set(server.SilentSince);
    const std::string name = oneLine(server.Name);
    if (found->broken) log_.logEvent("Unreadable player in the status of " + name, true);
    playerlist.setRows(std::move(found->players), 0);
    playerlist.setSortState({.sorted = true, .key = kFragsColumn, .descending = true});
    playerlist.sort(playerColumn);
    if (!playerlist.empty()) playerlist.setCurrent(1);
    caption.set("Players on " + name);
    log_.logEvent("showing playerlist for " + name + ": " + std::to_string(playerlist.count()) + " players.");
    return true;
}

void PlayersForm::restoreDesign() {
    q3players.set(false);
    caption.set(std::string(kDesignCaption));
    playerlist.clear();
    playersagain.restoreDesign();
    silence.set("");
}

}  // namespace gatehouse
