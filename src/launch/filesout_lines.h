#pragma once

#include "base/text.h"
#include "config/document_host.h"
#include "config/settings_document.h"
#include "platform/files.h"

#include <optional>
#include <string>
#include <string_view>

namespace gatehouse {

/// The value of one variable, or nothing where the variable gets no line.
using VariableText = std::optional<std::string>;
/// How a value of the document becomes the value of a variable.
using VariableForm = VariableText (*)(const SettingsDocument& doc, const DocumentHost& host);

/// The field's value as it stands: a text untouched, a check, list or slider as a whole number.
template <auto FieldMember>
VariableText asItStands(const SettingsDocument& doc, const DocumentHost&) {
    return (doc.*FieldMember).valueText();
}

/// Writes a variable with the values of all variables in one column.
inline void writeVariable(TextWriter& target, std::string_view name, std::string_view value) {
    constexpr std::size_t kNameWidth = 25;
    target.writeLine(padRight(name, kNameWidth) + quoted(value));
}

}  // namespace gatehouse
