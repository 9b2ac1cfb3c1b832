#pragma once

#include "base/command_flags.h"
#include "base/field.h"
#include "base/log.h"
#include "base/options.h"
#include "base/run_state.h"
#include "base/runtime_failure.h"
#include "config/document_host.h"
#include "config/document_rows.h"
#include "config/settings_document.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/ground.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace gatehouse {

/// A line of a config document that can't be taken. The message names the file, the line's number, the line (its first
/// 200 characters) and what is wrong with it.
class DocumentFailure : public RuntimeFailure {
public:
    DocumentFailure(std::string path, long lineNumber, const std::string& line, std::string_view reason);

    const std::string& path() const { return path_; }
    long lineNumber() const { return lineNumber_; }
    /// Its first 200 characters.
    const std::string& line() const { return line_; }

private:
    std::string path_;
    long lineNumber_;
    std::string line_;
};

/// What the documents are made from and what they act on. All of it outlives them.
struct DocumentParts : Ground {
    SettingsDocument& doc;
    DocumentHost& host;
    const TextField& ghcdir;
    const ListField& q3overwrite;
};

/// Writes and loads the config documents, and carries the Open and Save commands.
class ConfigDocuments {
public:
    explicit ConfigDocuments(const DocumentParts& parts);
    ConfigDocuments(const ConfigDocuments&) = delete;
    ConfigDocuments& operator=(const ConfigDocuments&) = delete;

    /// Puts the document in place of whatever is there and clears its changed flag. Fails, with the old file untouched,
    /// for a document that can't be put into lines, and when the file can't be replaced.
    void writeConfig(const std::string& path);
    /// Writes default.ghc into the folder of the documents. Fails like any file.
    void writeDefaultConfig();
    /// Writes the document without a word and leaves title and changed flag alone; a line that can't be written, or not
    /// be read again, is left out. Meant for what is unsaved when the program fails.
    void writeRescue(const std::string& path);
    /// Applies a document line by line. False when it can't be opened. Fails with `DocumentFailure` at a line that
    /// can't be taken; what stands before it stays applied.
    bool loadConfig(const std::string& path);

    /// A document has been applied to its end.
    Signal<> loaded;

    void mfileopen_Click();
    void mfilesave_Click();

    /// Where default.ghc is looked for.
    std::string defaultPath() const;

private:
    /// Lines that go to the file together, and what is logged behind them.
    struct Section {
        std::string text;
        std::string_view report;
    };
    enum class BadLines { Fail, LeaveOut };
    std::vector<Section> compose(BadLines badLines) const;

    void applyLine(const std::string& line);
    void parseSeta(std::string key, const std::string& value);
    void parseBind(const std::string& key, const std::string& value);
    void parseMaps(const std::string& key, const std::string& value);
    void parseBase(std::string key, const std::string& value);
    void parseSrvr(std::string key, const std::string& value);
    void parseBots(const std::string& key, const std::string& value);
    void parseMods(std::string key, const std::string& value);
    void chooseFirstMod();
    void chooseMod(const std::string& name);
    void labelModKey(std::string_view command, const std::string& button);
    /// Leaves a mod's row without a key.
    void takeModKey(int row);
    /// The row of that upper-cased key, or nothing.
    static const DocumentRow* findRow(const std::vector<DocumentRow>& rows, const std::string& key);

    void chooseDocument(const std::string& path);

    DocumentParts parts_;
    std::vector<DocumentRow> seta_;
    std::vector<DocumentRow> srvr_;
    std::vector<DocumentRow> bots_;
    std::unordered_map<std::string, const DocumentRow*> setaByKey_;
};

}  // namespace gatehouse
