#include "config/filescfg.h"

#include "base/numbers.h"
#include "base/text.h"
#include "config/default_document.h"
#include "config/document_text.h"

#include <functional>
#include <optional>
#include <utility>

namespace gatehouse {

namespace {

/// Text of a document under construction: lines, each ended by CR LF.
class Lines {
public:
    explicit Lines(bool leaveOutBad) : leaveOutBad_(leaveOutBad) {}

    void add(std::string_view line) { text_.append(line).append(kCrLf); }
    void comment() { add(kCommentLine); }
    /// Adds what `make` returns, if anything. A failure passes on, or leaves the line out where that is wanted.
    void tryAdd(const std::function<std::optional<std::string>()>& make) {
        try {
            if (const auto line = make()) add(*line);
        } catch (const RuntimeFailure&) {
            if (!leaveOutBad_) throw;
        }
    }
    void addRows(std::string_view kind, const std::vector<DocumentRow>& rows) {
        for (const DocumentRow& row : rows) {
            tryAdd([&]() -> std::optional<std::string> {
                const auto value = row.form.text();
                if (!value) return std::nullopt;
                return documentLine(kind, row.key, *value);
            });
            if (row.commentBehind) comment();
        }
    }
    std::string take() { return std::exchange(text_, {}); }

private:
    bool leaveOutBad_;
    std::string text_;
};

}  // namespace

ConfigDocuments::ConfigDocuments(const DocumentParts& parts)
    : parts_(parts),
      seta_(setaRows({parts.doc, parts.flags, parts.host, parts.log})),
      srvr_(srvrRows({parts.doc, parts.flags, parts.host, parts.log})),
      bots_(botsRows({parts.doc, parts.flags, parts.host, parts.log})) {
    for (const DocumentRow& row : seta_) setaByKey_.emplace(upper(row.key), &row);
}

std::vector<ConfigDocuments::Section> ConfigDocuments::compose(BadLines badLines) const {
    const SettingsDocument& doc = parts_.doc;
    std::vector<Section> sections;
    Lines lines(badLines == BadLines::LeaveOut);

    for (const auto line : kHeaderLines) lines.add(line);
    lines.add("// (note that 'mods currmod' MUST be the first line.");
    lines.comment();
    lines.add(documentLine("mods", "currmod", doc.modcombo.text()));
    for (const ModVariable& variable : parts_.host.modVariables())
        lines.add(documentLine("mods", "var=" + variable.name, variable.value));
    for (int i = 1; i <= doc.bindlist.count(); ++i) {
        const KeyBinding& binding = doc.bindlist.at(i);
        if (binding.kind != BindingKind::Mod) continue;
        lines.tryAdd([&] {
            // A document has the line of a button that there isn't, though no reader takes it. A rescue must be
            // readable.
            if (badLines == BadLines::LeaveOut && !binding.tag.empty()) static_cast<void>(keyButton(binding.tag));
            return documentLine("mods", "key=" + binding.key, binding.tag);
        });
    }
    lines.addRows("seta", seta_);
    lines.add(documentLine("base", "cfgtype", std::to_string(parts_.run.CurrentMode.get() - 1)));
    lines.comment();
    sections.push_back({lines.take(), "Game settings written OK"});

    for (int i = 1; i <= doc.maplist.count(); ++i) {
        const RotationRow& map = doc.maplist.at(i);
        lines.add(documentLine("maps", trim(map.name), trim(map.description)));
    }
    sections.push_back({lines.take(), "Maps written OK"});

    lines.comment();
    lines.addRows("srvr", srvr_);
    lines.comment();
    sections.push_back({lines.take(), "Server vars written OK"});

    for (int i = 1; i <= doc.q3botlist.count(); ++i) {
        const BotEntry& bot = doc.q3botlist.at(i);
        lines.add(documentLine("bots", bot.name, bot.skill + bot.team));
    }
    lines.addRows("bots", bots_);
    lines.comment();
    sections.push_back({lines.take(), "Bots OK"});

    for (int i = 1; i <= doc.bindlist.count(); ++i) {
        const KeyBinding& binding = doc.bindlist.at(i);
        if (binding.tag.empty()) continue;
        lines.tryAdd(
            [&] { return bindingLine(keyButton(binding.tag).gameKey, binding.label, binding.text, binding.tag); });
    }
    sections.push_back({lines.take(), "Bindings written OK"});
    return sections;
}

void ConfigDocuments::writeConfig(const std::string& path) {
    Files& files = parts_.files;
    Log& log = parts_.log;
    log.logEvent("Writing config " + path);
    const auto sections = compose(BadLines::Fail);
    // From here to the end of the file, what is in memory may be all there is.
    parts_.run.ConfigChanged = true;
    const bool replaces = files.fileExists(path);
    const auto file = files.replaceText(path);
    for (const Section& section : sections) file->write(section.text);
    // The old file goes in here, at one stroke with the coming of the new one: it is told when it is done.
    file->close();
    log.logEvent(replaces ? "Deleted existing file OK" : "File does not exist");
    log.logEvent("File created OK");
    for (const Section& section : sections) log.logEvent(section.report);
    log.logEvent("File written OK");
    parts_.run.ConfigChanged = false;
    // The stored path, whatever was written.
    parts_.run.title.set(lower(parts_.run.CurrentConfigPath));
}

std::string ConfigDocuments::rescueText() const {
    std::string text;
    for (const Section& section : compose(BadLines::LeaveOut)) text += section.text;
    return text;
}

std::optional<std::string> ConfigDocuments::unsavedText() const {
    if (loading_) return beforeLoad_;
    if (!parts_.run.ConfigChanged) return std::nullopt;
    return rescueText();
}

void ConfigDocuments::writeDefaultConfig() {
    parts_.log.logEvent("Writing default.ghc");
    Lines lines(false);
    for (const std::string& line : defaultDocumentLines()) lines.add(line);
    const auto file = parts_.files.replaceText(defaultPath());
    parts_.log.logEvent("File opened OK");
    file->write(lines.take());
    file->close();
    parts_.log.logEvent("File written OK");
}

}  // namespace gatehouse
