#include "status_text.h"

#include "command_text.h"

namespace gatehouse::practice {

namespace {

constexpr std::string_view kMark = "\xff\xff\xff\xff";
constexpr std::string_view kReplyHead = "\xff\xff\xff\xffstatusResponse\n";
constexpr std::size_t kMaxInfoBytes = 8192;
constexpr std::size_t kMaxReplyBytes = 16384;

/// The text without what would end a key, a value or a line of the reply.
std::string fitForInfo(std::string_view text) {
    std::string fit;
    for (const char c : text) {
        if (static_cast<unsigned char>(c) >= ' ' && c != '\\' && c != '"' && c != ';') fit += c;
    }
    return fit;
}

}  // namespace

std::optional<std::string> challengeOfQuery(std::string_view datagram) {
    if (!datagram.starts_with(kMark)) return std::nullopt;
    const auto commands = parseCommands(datagram.substr(kMark.size()));
    if (commands.empty() || lowered(commands[0][0]) != "getstatus") return std::nullopt;
    return commands[0].size() > 1 ? commands[0][1].substr(0, 128) : std::string();
}

std::string statusReply(const InfoPairs& info, const std::vector<Bot>& bots) {
    std::string reply(kReplyHead);
    for (const auto& [key, value] : info) {
        const std::string pair = "\\" + fitForInfo(key) + "\\" + fitForInfo(value);
        if (reply.size() + pair.size() <= kMaxInfoBytes) reply += pair;
    }
    reply += '\n';
    for (const Bot& bot : bots) {
        const std::string line = "0 0 \"" + fitForInfo(bot.name) + "\"\n";
        if (reply.size() + line.size() <= kMaxReplyBytes) reply += line;
    }
    return reply;
}

std::optional<std::string> textOfReply(std::string_view datagram) {
    if (!datagram.starts_with(kReplyHead)) return std::nullopt;
    return std::string(datagram.substr(kReplyHead.size()));
}

}  // namespace gatehouse::practice
