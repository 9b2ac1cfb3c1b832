#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace gatehouse::practice {

/// The status query as a server browser sends it.
inline constexpr std::string_view kStatusQuery = "\xff\xff\xff\xffgetstatus info";

struct Bot {
    std::string name;
    std::string skill;
    std::string team;
};

using InfoPairs = std::vector<std::pair<std::string, std::string>>;

/// What a status query wants to have echoed, or nothing if the datagram is no status query.
std::optional<std::string> challengeOfQuery(std::string_view datagram);

/// The reply to a status query: the info string, then a line for each bot.
std::string statusReply(const InfoPairs& info, const std::vector<Bot>& bots);

/// The text of a status reply behind its first line, or nothing if the datagram is no status reply.
std::optional<std::string> textOfReply(std::string_view datagram);

}  // namespace gatehouse::practice
