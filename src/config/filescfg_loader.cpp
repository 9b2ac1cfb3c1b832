#include "config/filescfg.h"

#include "base/numbers.h"
#include "base/text.h"

#include <utility>

namespace gatehouse {

namespace {

/// The two halves at the first "|", or nothing without one.
std::optional<std::pair<std::string, std::string>> halves(const std::string& text) {
    const long at = find(text, "|");
    if (at == 0) return std::nullopt;
    return std::pair(left(text, at - 1), mid(text, at + 1));
}

/// A value without its outer quotes; each of the two goes by itself, if it is there.
std::string unquoted(std::string value) {
    if (value.starts_with('"')) value.erase(0, 1);
    if (value.ends_with('"')) value.pop_back();
    return value;
}

bool isSkipped(std::string_view line) {
    return line.starts_with("//") || line.find_first_not_of(' ') == std::string_view::npos;
}

/// The next line with its number; a fault of the reading is the document's.
bool readLine(TextReader& file, const std::string& path, long& number, std::string& line) {
    try {
        ++number;
        return file.readLine(line);
    } catch (const RuntimeFailure& failure) {
        throw DocumentFailure(path, number, "", failure.what());
    }
}

}  // namespace

bool ConfigDocuments::loadConfig(const std::string& path) {
    SettingsDocument& doc = parts_.doc;
    Log& log = parts_.log;
    beforeLoad_ = unsavedText();
    loading_ = true;
    parts_.host.unmarkRotation();
    doc.MapCount = 0;
    log.logEvent("Trying to load " + path);
    doc.q3botlist.clear();
    doc.maplist.clear();
    chooseFirstMod();

    std::unique_ptr<TextReader> file;
    try {
        file = parts_.files.openText(path);
    } catch (const RuntimeFailure&) {
        log.logEvent("Could not open " + path, true);
        loading_ = false;
        return false;
    }
    log.logEvent("Opened OK");

    std::string line;
    long number = 0;
    while (readLine(*file, path, number, line)) {
        try {
            applyLine(line);
        } catch (const RuntimeFailure& failure) {
            throw DocumentFailure(path, number, line, failure.what());
        }
    }
    // Once for all rows: nobody looks at their order before.
    sortRotation(doc.maplist);
    parts_.host.markRotation();
    log.logEvent("Finished Loading.");
    parts_.run.title.set(lower(parts_.run.CurrentConfigPath));
    // Last: the changes of the fields have set it on the way.
    parts_.run.ConfigChanged = false;
    loading_ = false;
    loaded.emit();
    return true;
}

void ConfigDocuments::recover(const std::string& path) {
    try {
        loadConfig(path);
    } catch (const RuntimeFailure& failure) {
        parts_.log.logEvent(failure.what(), true);
    }
    loading_ = false;
    parts_.run.ConfigChanged = false;
}

void ConfigDocuments::applyLine(const std::string& line) {
    if (isSkipped(line)) return;
    const long firstBlank = find(line, " ");
    const long secondBlank = find(line, " ", firstBlank + 1);
    const std::string key = mid(line, firstBlank + 1, secondBlank - firstBlank - 1);
    const std::string value = unquoted(mid(line, secondBlank + 1));

    const std::string kind = lower(left(line, 4));
    if (kind == "seta") return parseSeta(key, value);
    if (kind == "bind") return parseBind(key, value);
    if (kind == "maps") return parseMaps(key, value);
    if (kind == "base") return parseBase(key, value);
    if (kind == "srvr") return parseSrvr(key, value);
    if (kind == "bots") return parseBots(key, value);
    if (kind == "mods") return parseMods(key, value);
}

const DocumentRow* ConfigDocuments::findRow(const std::vector<DocumentRow>& rows, const std::string& key) {
    for (const DocumentRow& row : rows) {
        if (equalNoCase(row.key, key)) return &row;
    }
    return nullptr;
}

void ConfigDocuments::parseSeta(std::string key, const std::string& value) {
    key = upper(key);
    const auto row = setaByKey_.find(key);
    if (row != setaByKey_.end()) return row->second->form.take(value);
    parts_.log.logEvent("Unrecognised SETA: " + key + " " + value, true);
}

void ConfigDocuments::parseBind(const std::string& key, const std::string& value) {
    const auto shown = halves(key);
    const auto bound = halves(value);
    if (!shown || !bound) return;
    // An action that this program doesn't know, or no longer, is passed over without a word.
    const int row = findBinding(parts_.doc.bindlist, bound->first);
    if (row == 0) return;
    parts_.doc.bindlist.update(row, [&](KeyBinding& binding) {
        binding.tag = bound->second;
        binding.label = shown->second;
    });
}

void ConfigDocuments::parseMaps(const std::string& key, const std::string& value) {
    SettingsDocument& doc = parts_.doc;
    doc.MapCount = addInt16(doc.MapCount, 1);
    doc.maplist.append({zeroPadded(doc.MapCount, 3), upper(key), value});
    parts_.flags.mtool2[1].set(true);
    parts_.flags.mtool1[1].set(true);
    parts_.flags.mtool1[2].set(true);
}

void ConfigDocuments::parseBase(std::string key, const std::string& value) {
    key = upper(key);
    if (key != "CFGTYPE") return;
    const std::int16_t mode = addInt16(valInt16(value), 1);
    if (mode < kConnect || mode > kBenchmark) throw RuntimeFailure("There is no mode " + std::to_string(mode));
    if (parts_.run.benchmarking.get()) return;
    parts_.run.CurrentMode.set(mode);
    const bool canRun = parts_.host.hasServers() || mode != kConnect;
    parts_.flags.SetRunEnabled(canRun);
    parts_.flags.tbservers[2].set(canRun);
    parts_.host.sbar_GroupClick(mode);
}

void ConfigDocuments::parseSrvr(std::string key, const std::string& value) {
    key = upper(key);
    if (const DocumentRow* row = findRow(srvr_, key)) return row->form.take(value);
    parts_.log.logEvent("Unrecognised SRVR: " + key + " " + value, true);
}

void ConfigDocuments::parseBots(const std::string& key, const std::string& value) {
    if (const DocumentRow* row = findRow(bots_, key)) return row->form.take(value);
    parts_.doc.q3botlist.append({key, left(value, 1), mid(value, 2)});
}

void ConfigDocuments::parseMods(std::string key, const std::string& value) {
    key = upper(key);
    const std::string kind = left(key, 4);
    const std::string rest = mid(key, 5);
    if (kind == "CURR") return chooseMod(value);
    if (kind == "KEY=") return labelModKey(rest, value);
    if (kind == "VAR=") return parts_.host.setModVariable(rest, value);
}

void ConfigDocuments::chooseFirstMod() {
    ListField& modcombo = parts_.doc.modcombo;
    if (modcombo.choices().empty()) return;
    // It counts as chosen anew where it stands already: the game type of the document before must not stay.
    if (modcombo.index() == 0) return modcombo.changed.emit();
    modcombo.setIndex(0);
}

void ConfigDocuments::chooseMod(const std::string& name) {
    ListField& modcombo = parts_.doc.modcombo;
    const auto& choices = modcombo.choices();
    // One row too late at both ends, as meant: row 0 stands selected already, and the row past the end is empty.
    for (std::size_t i = 1; i <= choices.size(); ++i) {
        const std::string text = i < choices.size() ? choices[i].text : std::string();
        if (equalNoCase(text, name)) return selectEntry(modcombo, double(i), parts_.log);
    }
    parts_.log.logEvent("MODS: Unknown MOD " + quoted(name));
}

void ConfigDocuments::labelModKey(std::string_view command, const std::string& button) {
    BindingTable& bindlist = parts_.doc.bindlist;
    for (int i = 1; i <= bindlist.count(); ++i) {
        if (!equalNoCase(bindlist.at(i).key, command)) continue;
        if (button.empty()) {
            takeModKey(i);
            continue;
        }
        const KeyButton& chosen = keyButton(button);
        bindlist.update(i, [&chosen](KeyBinding& binding) { binding.label = chosen.gameKey; });
    }
}

void ConfigDocuments::takeModKey(int row) {
    BindingTable& bindlist = parts_.doc.bindlist;
    // A game action of the same command has a line of its own.
    if (bindlist.at(row).kind != BindingKind::Mod) return;
    parts_.log.logEvent("MODS: No key for " + quoted(bindlist.at(row).text), true);
    bindlist.update(row, [](KeyBinding& binding) {
        binding.label = kUnbound;
        binding.tag.clear();
    });
}

}  // namespace gatehouse
