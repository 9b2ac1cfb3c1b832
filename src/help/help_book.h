#pragma once

#include "config/settings_document.h"
#include "help/help_pages.h"
#include "help/help_viewer.h"
#include "help/setting_facts.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace gatehouse {

/// A heading of the help, for its contents.
struct HelpHeading {
    HelpPlace place;
    int depth = 0;  ///< 0 for a page, 1 for what stands below it
    std::string text;
};

/// A paragraph that holds what was searched for.
struct HelpHit {
    HelpPlace place;
    std::string heading;  ///< of the page, and of what stands above the paragraph
    std::string text;
};

/// The pages as they are read: prose with its references put in, and a reference that is made from the declarations of
/// settings, commands and windows. A page is HTML without style. Its links are "topic:" and a name, which leads to what
/// the help says of that; "show:" and a name, which leads to the control; or an address of the web.
///
/// A page is written in blocks (h1, h2, h3, p, li), with references in braces:
///
///     {settings GROUP}  {commands PLACE}  {window FORM}   a paragraph for each setting or command
///     {about NAME ...} prose {/about}                     joins the paragraph of the first name, wherever that stands;
///                                                         the others are found there too
///     {field NAME}  {command NAME}  {key NAME}            caption, menu path, key
///     {tab KEY}  {mode N}  {window-title FORM}            links by their captions
///     {show NAME words}                                   a link to the control, "Show it" without words
class HelpBook {
public:
    struct Sources {
        const HelpPages& pages;
        const SettingsDocument& doc;
        const OptionKeeper& options;
        /// All groups of fields that stand in a tab or in a form.
        std::function<std::vector<const FieldGroup*>()> groups;
        /// Whether the control of that name can be led to at any time.
        std::function<bool(std::string_view name)> canShow;
    };
    explicit HelpBook(Sources sources) : from_(std::move(sources)) {}

    /// Fails for a page that isn't there.
    std::string html(int page);
    std::string title(int page) const { return from_.pages.title(page); }
    /// Where the help tells of a control, a command or a window; nothing if it doesn't.
    std::optional<HelpPlace> placeOf(std::string_view topic);
    /// What it tells there, as HTML without links; empty if it doesn't.
    std::string paragraphOf(std::string_view topic);
    std::vector<HelpHeading> contents();
    /// The paragraphs that hold every word of the text in any case: first those that begin with the first word, then
    /// those that hold all of them in their first words.
    std::vector<HelpHit> search(std::string_view text);
    /// References that lead nowhere.
    const std::vector<std::string>& faults();

private:
    struct Block {
        std::string tag, anchor, html, text;
    };
    struct Page {
        std::string html;
        std::vector<Block> blocks;
    };
    /// What is added to the paragraph of a name.
    using About = std::map<std::string, std::string, std::less<>>;

    Page make(int page);
    const std::vector<Page>& all();
    std::string takeAbouts(const std::string& source, About& abouts);
    std::string putIn(const std::string& source, const About& abouts);
    std::string replacement(const std::string& reference, const About& abouts);
    std::string settings(std::string_view group, const About& abouts);
    std::string setting(const Field& field, const About& abouts);
    std::string commandList(std::string_view place, const About& abouts);
    std::string showLink(std::string_view name, const std::string& words = "Show it") const;
    std::string topicLink(std::string_view topic, const std::string& text);
    const Field* findField(std::string_view name) const;
    const SettingFacts& facts();

    Sources from_;
    std::optional<SettingFacts> facts_;
    std::vector<Page> all_;
    std::map<std::string, HelpPlace, std::less<>> topics_;
    std::vector<std::string> linked_;  ///< topics that some page leads to
    std::vector<std::string> faults_;
    bool checked_ = false;
};

/// A command as a person finds it: its menu and its caption.
std::string pathOf(const struct CommandInfo& command);

}  // namespace gatehouse
