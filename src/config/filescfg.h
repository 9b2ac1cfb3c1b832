#pragma once

#include "base/command_flags.h"
#include "base/field.h"
#include "base/line_failure.h"
#include "base/log.h"
#include "base/options.h"
#include "base/run_state.h"
#include "config/document_host.h"
#include "config/document_rows.h"
#include "config/settings_document.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/ground.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace gatehouse {

/// A line of a config document that can't be taken.
class DocumentFailure : public LineFailure {
public:
    using LineFailure::LineFailure;
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
    /// The document as it stands; a line that can't be written, or not be read again, is left out.
    std::string rescueText() const;
    /// The same of what no file has: nothing without changes; while a load is half way, or has failed there, what
    /// was unsaved before it.
    std::optional<std::string> unsavedText() const;
    /// Applies a document line by line. False when it can't be opened. Fails with `DocumentFailure` at a line that
    /// can't be taken; what stands before it stays applied.
    bool loadConfig(const std::string& path);

    /// After a load that has failed: that document, which is the one before, comes back as far as it can be read.
    void recover(const std::string& path);

    /// A document has been applied to its end.
    Signal<> loaded;

    /// Makes that file the document in use and loads it, as the Open command does with what was chosen. Fails like
    /// `loadConfig`.
    void openDocument(const std::string& path);

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
    /// True when another document may come in: nothing has changed, or it was saved or given up when asked.
    bool changesSettled();

    DocumentParts parts_;
    std::vector<DocumentRow> seta_;
    std::vector<DocumentRow> srvr_;
    std::vector<DocumentRow> bots_;
    std::unordered_map<std::string, const DocumentRow*> setaByKey_;
    bool loading_ = false;                    ///< a load has begun and not come to its end
    std::optional<std::string> beforeLoad_;  ///< what was unsaved when it began
};

}  // namespace gatehouse
