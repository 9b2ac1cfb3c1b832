#include "help/markup.h"

#include <utility>

namespace gatehouse {

namespace {

constexpr std::pair<char, std::string_view> kEntities[] = {
    {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}};

/// The character that an entity at the beginning of the text stands for, and its length; none for any other text.
std::pair<char, std::size_t> entityAt(std::string_view text) {
    for (const auto& [character, entity] : kEntities)
        if (text.starts_with(entity)) return {character, entity.size()};
    return {'\0', 0};
}

}  // namespace

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        std::string_view written(&c, 1);
        for (const auto& [character, entity] : kEntities)
            if (c == character) written = entity;
        result += written;
    }
    return result;
}

std::string plainText(std::string_view html) {
    std::string text;
    bool inTag = false;
    for (std::size_t i = 0; i < html.size(); ++i) {
        const char c = html[i];
        if (html.substr(i).starts_with("<br") && !text.ends_with(' ')) text += ' ';
        if (c == '<') inTag = true;
        if (!inTag) {
            const auto [character, length] = entityAt(html.substr(i));
            const bool blank = c == ' ' || c == '\n' || c == '\r' || c == '\t';
            if (length > 0)
                text += character;
            else if (!blank)
                text += c;
            else if (!text.empty() && text.back() != ' ')
                text += ' ';
            if (length > 0) i += length - 1;
        }
        if (c == '>') inTag = false;
    }
    while (text.ends_with(' ')) text.pop_back();
    return text;
}

}  // namespace gatehouse
