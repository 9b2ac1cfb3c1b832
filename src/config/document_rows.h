#pragma once

#include "base/command_flags.h"
#include "base/log.h"
#include "config/document_host.h"
#include "config/settings_document.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace gatehouse {

/// How one value of the document becomes text, and how text becomes it.
struct RowForm {
    /// The text to be written, or nothing when the line is left out.
    std::function<std::optional<std::string>()> text;
    /// Takes a text that was read. Fails for a strict value that is no number.
    std::function<void(const std::string&)> take;
    /// What a person sees of it; empty for a line that no field stands for.
    std::vector<const Field*> fields = {};
};

/// One line of the document.
struct DocumentRow {
    std::string_view key;
    RowForm form;
    bool commentBehind = false;
};

/// What the forms act on.
struct RowTargets {
    SettingsDocument& doc;
    CommandFlags& flags;
    DocumentHost& host;
    Log& log;
};

/// Selects an entry. An index that the list doesn't have leaves the selection and logs a serious line.
void selectEntry(ListField& list, double index, Log& log);

/// The lines of each kind, in the order in which they are written.
std::vector<DocumentRow> setaRows(RowTargets targets);
std::vector<DocumentRow> srvrRows(RowTargets targets);
std::vector<DocumentRow> botsRows(RowTargets targets);

}  // namespace gatehouse
