#include "help/help_book.h"

#include "base/runtime_failure.h"
#include "base/text.h"
#include "help/markup.h"
#include "window/rules/commands.h"
#include "window/rules/modes.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace gatehouse {

namespace {

constexpr std::array<std::string_view, 5> kBlockTags = {"h1", "h2", "h3", "p", "li"};

/// How a link to a control begins.
constexpr std::string_view kShowLink = " <a href=\"show:";

/// A paragraph without its links to controls: it is read elsewhere than in its page.
std::string withoutShowLinks(std::string html) {
    constexpr std::string_view kEnd = "</a>";
    for (auto begin = html.find(kShowLink.substr(1)); begin != std::string::npos;
         begin = html.find(kShowLink.substr(1))) {
        const auto end = html.find(kEnd, begin);
        html.erase(begin, end == std::string::npos ? end : end + kEnd.size() - begin);
    }
    return html;
}

std::string block(std::string_view tag, std::string_view names, const std::string& inside) {
    std::string text = "<" + std::string(tag);
    if (!names.empty()) text += " id=\"" + std::string(names) + "\"";
    return text + ">" + inside + "</" + std::string(tag) + ">\n";
}

std::vector<std::string> wordsOf(std::string_view text) {
    std::istringstream words{std::string(text)};
    std::vector<std::string> result;
    for (std::string word; words >> word;) result.push_back(word);
    return result;
}

std::string sentence(std::string_view text) {
    return std::string(text) + (text.ends_with('.') || text.ends_with('!') || text.ends_with('?') ? "" : ".");
}

std::string firstKey(const CommandInfo& command) { return std::string(command.keys.substr(0, command.keys.find(';'))); }

bool isMenu(std::string_view place) {
    return std::find(std::begin(kMenus), std::end(kMenus), place) != std::end(kMenus);
}

std::string aboutOf(const std::map<std::string, std::string, std::less<>>& abouts, std::string_view name) {
    for (const auto& [names, prose] : abouts)
        if (wordsOf(names).front() == name) return " " + prose;
    return {};
}

/// The name itself and those that are told of in its place.
std::string namesAt(const std::map<std::string, std::string, std::less<>>& abouts, std::string_view name) {
    for (const auto& [names, prose] : abouts)
        if (wordsOf(names).front() == name) return names;
    return std::string(name);
}

bool isToldElsewhere(const std::map<std::string, std::string, std::less<>>& abouts, std::string_view name) {
    return std::any_of(abouts.begin(), abouts.end(), [name](const auto& one) {
        const std::vector<std::string> names = wordsOf(one.first);
        return std::find(names.begin() + 1, names.end(), name) != names.end();
    });
}

}  // namespace

std::string pathOf(const CommandInfo& command) {
    return isMenu(command.place) ? std::string(command.place) + " > " + command.plainCaption() : command.plainCaption();
}

const SettingFacts& HelpBook::facts() {
    if (!facts_) facts_.emplace(from_.doc, from_.options);
    return *facts_;
}

std::string HelpBook::html(int page) { return make(page).html; }

const Field* HelpBook::findField(std::string_view name) const {
    for (const FieldGroup* group : from_.groups())
        for (const Field* field : group->fields)
            if (field->spec().name == name) return field;
    return nullptr;
}

std::string HelpBook::topicLink(std::string_view topic, const std::string& text) {
    linked_.emplace_back(topic);
    return "<a href=\"topic:" + std::string(topic) + "\">" + escaped(text) + "</a>";
}

std::string HelpBook::showLink(std::string_view name, const std::string& words) const {
    return from_.canShow(name) ? std::string(kShowLink) + std::string(name) + "\">" + words + "</a>" : "";
}

std::string HelpBook::setting(const Field& field, const About& abouts) {
    const std::string_view name = field.spec().name;
    std::string text = "<b>" + escaped(trim(field.title())) + "</b>";
    if (!field.spec().hint.empty()) text += " " + escaped(sentence(field.spec().hint));
    text += aboutOf(abouts, name);
    const std::string fact = facts().line(field);
    if (const std::string below = escaped(fact) + showLink(name); !trim(below).empty())
        text += "<br/><small>" + below + "</small>";
    return block("p", namesAt(abouts, name), text);
}

std::string HelpBook::settings(std::string_view group, const About& abouts) {
    std::string text;
    for (const FieldGroup* one : from_.groups()) {
        if (one->name != group) continue;
        const auto addFields = [&](const std::vector<Field*>& fields) {
            for (const Field* field : fields)
                if (!field->spec().caption.empty() && !isToldElsewhere(abouts, field->spec().name))
                    text += setting(*field, abouts);
        };
        if (one->sections.empty()) addFields(one->fields);
        for (const FieldSection* section : one->sections) {
            text += block("h3", "", escaped(section->heading));
            addFields(section->fields);
        }
    }
    if (text.empty()) faults_.push_back("settings " + std::string(group));
    return text;
}

std::string HelpBook::commandList(std::string_view place, const About& abouts) {
    std::string text;
    for (const CommandInfo& command : commands()) {
        if (command.place != place || isToldElsewhere(abouts, command.name)) continue;
        std::string line = "<b>" + escaped(pathOf(command)) + "</b>";
        if (!command.keys.empty()) line += " (" + escaped(firstKey(command)) + ")";
        if (!command.hint.empty()) line += " " + escaped(sentence(command.hint));
        line += aboutOf(abouts, command.name);
        if (const std::string show = showLink(command.name); !show.empty())
            line += "<br/><small>" + show.substr(1) + "</small>";
        text += block("p", namesAt(abouts, command.name), line);
    }
    if (text.empty()) faults_.push_back("commands " + std::string(place));
    return text;
}

std::string HelpBook::replacement(const std::string& reference, const About& abouts) {
    const std::vector<std::string> words = wordsOf(reference);
    const std::string kind = words.empty() ? "" : words[0];
    const std::string name = words.size() < 2 ? "" : words[1];
    if (kind == "settings") return settings(name, abouts);
    if (kind == "commands") return commandList(name, abouts);
    if (kind == "field") {
        if (const Field* field = findField(name)) return topicLink(name, trim(field->title()));
    } else if (kind == "tab" || kind == "mode") {
        for (int frame = 0; kind == "tab" && frame < kHelpFrame; ++frame) {
            const TabInfo& tab = tabInfo(static_cast<Frame>(frame));
            if (tab.key == name)
                return topicLink(kHelpPages[static_cast<std::size_t>(kReferencePages + frame)],
                                 std::string(tab.caption));
        }
        for (std::size_t mode = 1; kind == "mode" && mode <= modes().size(); ++mode)
            if (name == std::to_string(mode))
                return topicLink(kHelpPages[mode], std::string(modes()[mode - 1].caption));
    } else {
        try {
            if (kind == "command") return topicLink(name, pathOf(commandInfo(name)));
            if (kind == "key") return "<b>" + escaped(firstKey(commandInfo(name))) + "</b>";
            if (kind == "show" && from_.canShow(name)) {
                const auto behind = reference.find(name) + name.size();
                return showLink(name, behind < reference.size() ? escaped(trim(reference.substr(behind))) : "Show it")
                    .substr(1);
            }
            const DialogInfo& window = dialogInfo(name);
            if (kind == "window-title") return topicLink(name, trim(window.title));
            if (kind == "window")
                return block("h3", name, escaped(trim(window.title))) +
                       block("p", "", escaped(window.about) + aboutOf(abouts, name) + showLink(name));
        } catch (const RuntimeFailure&) {
            // A name that nothing bears: told below.
        }
    }
    faults_.push_back(reference);
    return escaped(name);
}

std::string HelpBook::takeAbouts(const std::string& source, About& abouts) {
    constexpr std::string_view kBegin = "{about ";
    constexpr std::string_view kEnd = "{/about}";
    std::string rest;
    std::size_t at = 0;
    while (true) {
        const auto begin = source.find(kBegin, at);
        const auto named = source.find('}', begin);
        const auto end = source.find(kEnd, named);
        if (begin == std::string::npos || named == std::string::npos || end == std::string::npos) break;
        rest += source.substr(at, begin - at);
        const auto names = begin + kBegin.size();
        abouts[source.substr(names, named - names)] = trim(source.substr(named + 1, end - named - 1));
        at = end + kEnd.size();
    }
    return rest + source.substr(at);
}

std::string HelpBook::putIn(const std::string& source, const About& abouts) {
    std::string text;
    std::size_t at = 0;
    while (true) {
        const auto begin = source.find('{', at);
        const auto end = source.find('}', begin);
        if (begin == std::string::npos || end == std::string::npos) break;
        text += source.substr(at, begin - at) + replacement(source.substr(begin + 1, end - begin - 1), abouts);
        at = end + 1;
    }
    return text + source.substr(at);
}

HelpBook::Page HelpBook::make(int number) {
    About abouts;
    const std::string written = takeAbouts(from_.pages.source(number), abouts);
    for (auto& [names, prose] : abouts) prose = putIn(prose, {});
    const std::string source = putIn(written, abouts);

    // Each block gets an anchor for each of its names, or one of its own.
    Page page;
    std::size_t at = 0;
    while (true) {
        const auto open = source.find('<', at);
        const auto close = source.find('>', open);
        if (open == std::string::npos || close == std::string::npos) break;
        const std::string inTag = source.substr(open + 1, close - open - 1);
        const std::string tag = inTag.substr(0, inTag.find(' '));
        page.html += source.substr(at, close + 1 - at);
        at = close + 1;
        if (std::find(kBlockTags.begin(), kBlockTags.end(), tag) == kBlockTags.end()) continue;
        const auto end = source.find("</" + tag + ">", at);
        if (end == std::string::npos) continue;
        const auto quote = inTag.find('"');
        std::vector<std::string> names;
        if (quote != std::string::npos) names = wordsOf(inTag.substr(quote + 1, inTag.rfind('"') - quote - 1));
        if (names.empty()) names.push_back("b" + std::to_string(page.blocks.size()));
        for (const std::string& name : names) {
            page.html += "<a name=\"" + name + "\"></a>";
            const std::string inside = source.substr(at, end - at);
            const bool first = name == names.front();
            // A further name is one more way to the same paragraph, and no paragraph of its own.
            page.blocks.push_back({first ? tag : "", name, inside, first ? plainText(withoutShowLinks(inside)) : ""});
        }
    }
    page.html += source.substr(at);
    return page;
}

const std::vector<HelpBook::Page>& HelpBook::all() {
    if (!all_.empty()) return all_;
    for (int number = 0; number < static_cast<int>(kHelpPages.size()); ++number) {
        all_.push_back(make(number));
        topics_[std::string(kHelpPages[static_cast<std::size_t>(number)])] = {number};
        for (const Block& one : all_.back().blocks) topics_.try_emplace(one.anchor, HelpPlace{number, one.anchor});
    }
    for (int frame = 0; frame <= kHelpFrame; ++frame) {
        const HelpPlace page{frame < kHelpFrame ? kReferencePages + frame : kFirstHelpPage};
        topics_.try_emplace(std::string(tabInfo(static_cast<Frame>(frame)).key), page);
    }
    return all_;
}

std::optional<HelpPlace> HelpBook::placeOf(std::string_view topic) {
    all();
    const auto found = topics_.find(topic);
    return found == topics_.end() ? std::nullopt : std::optional(found->second);
}

std::string HelpBook::paragraphOf(std::string_view topic) {
    const auto place = placeOf(topic);
    if (!place) return {};
    const auto& blocks = all()[static_cast<std::size_t>(place->page)].blocks;
    // A page is told by its heading.
    const auto found = std::find_if(blocks.begin(), blocks.end(), [&](const Block& one) {
        return place->anchor.empty() ? one.tag == "h1" : one.anchor == place->anchor;
    });
    if (found == blocks.end()) return {};
    std::string html = found->html;
    // A heading is told by what stands below it.
    if (found->tag.starts_with('h') && found + 1 != blocks.end()) html = "<b>" + html + "</b><br/>" + (found + 1)->html;
    html = withoutShowLinks(std::move(html));
    for (auto begin = html.find("<a "); begin != std::string::npos; begin = html.find("<a ")) {
        const auto end = html.find('>', begin);
        html.erase(begin, end + 1 - begin);
    }
    constexpr std::string_view kEnd = "</a>";
    for (auto at = html.find(kEnd); at != std::string::npos; at = html.find(kEnd)) html.erase(at, kEnd.size());
    return html;
}

std::vector<HelpHeading> HelpBook::contents() {
    std::vector<HelpHeading> headings;
    for (std::size_t number = 0; number < all().size(); ++number) {
        const int page = static_cast<int>(number);
        headings.push_back({{page}, 0, title(page)});
        for (const Block& one : all()[number].blocks)
            if (one.tag == "h2" || one.tag == "h3") headings.push_back({{page, one.anchor}, 1, one.text});
    }
    return headings;
}

std::vector<HelpHit> HelpBook::search(std::string_view text) {
    const std::vector<std::string> words = wordsOf(lower(text));
    if (words.empty()) return {};
    constexpr std::size_t kFirstWords = 40;
    std::vector<std::pair<int, HelpHit>> found;
    for (std::size_t number = 0; number < all().size(); ++number) {
        const int page = static_cast<int>(number);
        std::string above;
        for (const Block& one : all()[number].blocks) {
            if (one.tag.starts_with('h')) above = one.tag == "h1" ? "" : one.text;
            const std::string held = lower(one.text);
            const auto isIn = [&](std::string_view where) {
                return std::all_of(words.begin(), words.end(), [where](const std::string& word) {
                    return where.find(word) != std::string_view::npos;
                });
            };
            if (one.tag.empty() || !isIn(held)) continue;
            const std::string heading = title(page) + (above.empty() ? "" : " > " + above);
            const int rank = held.starts_with(words.front())                       ? 0
                             : isIn(std::string_view(held).substr(0, kFirstWords)) ? 1
                                                                                   : 2;
            found.emplace_back(rank, HelpHit{{page, one.anchor}, heading, one.text});
        }
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<HelpHit> hits;
    for (auto& [rank, hit] : found) hits.push_back(std::move(hit));
    return hits;
}

const std::vector<std::string>& HelpBook::faults() {
    all();
    if (!std::exchange(checked_, true))
        for (const std::string& topic : linked_)
            if (!placeOf(topic)) faults_.push_back("topic:" + topic);
    return faults_;
}

}  // namespace gatehouse
