#include "servers/server_filter.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>
#include <vector>

namespace gatehouse {

namespace {

constexpr std::size_t kMostChoices = 200;
constexpr double kMostPlayers = 99'999;
/// The columns that are searched: all but the password, which nobody shall find out letter by letter.
constexpr std::array<std::string ServerEntry::*, 7> kSearched = {
    &ServerEntry::Name, &ServerEntry::Ping, &ServerEntry::Players, &ServerEntry::Game,
    &ServerEntry::Mod,  &ServerEntry::Map,  &ServerEntry::Address};

char lowerLetter(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Whether a text holds another, which is in lower case. Thousands of rows are searched at each letter typed.
bool holds(const std::string& text, const std::string& wanted) {
    return std::search(text.begin(), text.end(), wanted.begin(), wanted.end(),
                       [](char a, char b) { return lowerLetter(a) == b; }) != text.end();
}

/// The choices of a list: what stands first, then the texts of a column.
void offer(ListField& list, std::string_view any, ServerTable& servers, std::string ServerEntry::*column) {
    std::set<std::string> texts;
    for (int row = 1; row <= servers.count() && texts.size() < kMostChoices; ++row) {
        std::string text = trim(servers.at(row).*column);
        if (!text.empty() && text != "?") texts.insert(std::move(text));
    }
    const std::string chosen = list.index() > 0 ? list.text() : std::string();
    if (!chosen.empty()) texts.insert(chosen);
    std::vector<Choice> choices{{std::string(any), 0}};
    for (const std::string& text : texts) choices.push_back({text, 0});
    if (choices == list.choices()) return;
    const auto at = std::find_if(choices.begin() + 1, choices.end(), [&](const Choice& c) { return c.text == chosen; });
    const int index = at == choices.end() ? 0 : static_cast<int>(at - choices.begin());
    list.setChoices(std::move(choices));
    list.setIndex(index);
}

bool isChosen(const ListField& list, const std::string& text) { return list.index() <= 0 || trim(text) == list.text(); }

}  // namespace

std::optional<Crowd> crowdOf(const ServerEntry& server) {
    const auto slash = server.Players.find('/');
    if (slash == std::string::npos) return std::nullopt;
    const auto number = [](const std::string& text) { return static_cast<int>(std::clamp(val(text), 0.0, kMostPlayers)); };
    return Crowd{number(server.Players.substr(0, slash)), number(server.Players.substr(slash + 1))};
}

ServerFilter::ServerFilter(std::string_view name, ServerTable& servers, const Favourites& favourites)
    : fields(name), servers_(servers), favourites_(favourites) {
    for (Field* field : fields.fields)
        follow_.on(field->changed, [this] {
            if (!quiet_) apply();
        });
}

bool ServerFilter::matches(const ServerEntry& server, const std::string& wanted) const {
    if (filtersilent.value() != 0 && !server.SilentSince.empty()) return false;
    if (filterplayers.value() != 0 || filterfree.value() != 0) {
        const auto crowd = crowdOf(server);
        if (filterplayers.value() != 0 && (!crowd || crowd->players == 0)) return false;
        // Of one that doesn't tell, nobody knows that it is full.
        if (filterfree.value() != 0 && crowd && crowd->players >= crowd->places) return false;
    }
    if (!isChosen(filtergame, server.Game) || !isChosen(filtermod, server.Mod)) return false;
    if (filterfavourites.value() != 0 && !favourites_.contains(server.Address)) return false;
    return wanted.empty() || std::any_of(kSearched.begin(), kSearched.end(),
                                         [&](auto column) { return holds(server.*column, wanted); });
}

void ServerFilter::apply() {
    const std::string wanted = lower(trim(filtertext.text()));
    active.set(!wanted.empty() || std::any_of(fields.fields.begin(), fields.fields.end(), [](const Field* field) {
        return field->kind() != Field::Kind::Text && field->valueText() != "0";
    }));
    std::vector<bool> seen(static_cast<std::size_t>(servers_.count()) + 1);
    for (int row = 1; row <= servers_.count(); ++row)
        seen[static_cast<std::size_t>(row)] = matches(servers_.at(row), wanted);
    servers_.selectWhere([&](int row) { return servers_.selected(row) && seen[static_cast<std::size_t>(row)]; });
    std::size_t row = 0;
    servers_.updateAll([&](ServerEntry& server) {
        const bool hidden = !seen[++row];
        return std::exchange(server.hidden, hidden) != hidden;
    });
    const auto shown = std::count(seen.begin(), seen.end(), true);
    keepCurrentInSight();
    summary.set(active.get() ? std::to_string(shown) + " of " + std::to_string(servers_.count()) + " shown" : "");
}

void ServerFilter::keepCurrentInSight() {
    const int current = servers_.current();
    if (current == 0 || !servers_.at(current).hidden) return;
    for (int row = 1; row <= servers_.count(); ++row)
        if (!servers_.at(row).hidden) return servers_.setCurrent(row);
    servers_.setCurrent(0);
}

void ServerFilter::offerChoices() {
    quiet_ = true;
    offer(filtergame, kAnyGame, servers_, &ServerEntry::Game);
    offer(filtermod, kAnyMod, servers_, &ServerEntry::Mod);
    quiet_ = false;
}

void ServerFilter::clear() {
    quiet_ = true;
    for (Field* field : fields.fields) field->restoreDesign();
    quiet_ = false;
    apply();
}

}  // namespace gatehouse
