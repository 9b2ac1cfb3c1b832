#include "help/setting_facts.h"

#include "base/log.h"
#include "base/text.h"
#include "config/default_document.h"
#include "config/document_host.h"
#include "config/document_rows.h"
#include "config/document_text.h"

namespace gatehouse {

namespace {

class NoLog : public Log {
    void logEvent(std::string_view, bool) override {}
    void toFile(std::string_view) override {}
};

/// A document that belongs to no program.
class NoHost : public DocumentHost {
    std::string selectedModel() const override { return {}; }
    void selectModel(const std::string&) override {}
    std::vector<ModVariable> modVariables() const override { return {}; }
    void setModVariable(const std::string&, const std::string&) override {}
    void unmarkRotation() override {}
    void markRotation() override {}
    bool hasServers() const override { return false; }
    void sbar_GroupClick(std::int16_t) override {}
};

/// A value as the window shows it.
std::string shownValue(const Field& field) {
    switch (field.kind()) {
        case Field::Kind::Check:
            return static_cast<const CheckField&>(field).value() != 0 ? "on" : "off";
        case Field::Kind::List:
            return static_cast<const ListField&>(field).text();
        default:
            return field.valueText();
    }
}

/// Hands the lines of the default document to the rows of one kind.
void takeDefaults(std::string_view kind, const std::vector<DocumentRow>& rows) {
    const std::vector<std::string> lines = defaultDocumentLines();
    for (const DocumentRow& row : rows) {
        const std::string beginning = std::string(kind).append(" ").append(row.key);
        for (const std::string& line : lines) {
            const auto value = line.find('"');
            if (value == std::string::npos || !equalNoCase(trim(line.substr(0, value)), beginning)) continue;
            row.form.take(line.substr(value + 1, line.size() - value - 2));
        }
    }
}

std::string rangeText(const Field& field) {
    if (const auto* list = dynamic_cast<const ListField*>(&field)) {
        std::string entries;
        for (const Choice& choice : list->choices()) {
            // Some read like sentences.
            const auto end = choice.text.find_last_not_of('.');
            entries += (entries.empty() ? "" : ", ") + choice.text.substr(0, end + 1);
        }
        constexpr std::size_t kMostEntries = 12;
        return list->choices().empty() || list->choices().size() > kMostEntries ? "" : "One of: " + entries + ".";
    }
    if (!field.range()) return {};
    const Range& range = *field.range();
    std::string text = std::to_string(range.min) + " to " + std::to_string(range.max);
    if (range.step > 1) text += ", in steps of " + std::to_string(range.step);
    return text + ".";
}

std::string sentence(const std::string& text) { return text.ends_with('.') ? text : text + "."; }

}  // namespace

SettingFacts::SettingFacts(const SettingsDocument& live, const OptionKeeper& options) : options_(options) {
    SettingsDocument doc;
    CommandFlags flags;
    NoHost host;
    NoLog log;
    doc.q3gametype.setChoices(live.q3gametype.choices());
    const RowTargets targets{doc, flags, host, log};
    takeDefaults("seta", setaRows(targets));
    takeDefaults("srvr", srvrRows(targets));
    takeDefaults("bots", botsRows(targets));
    for (const DocumentRow& row : setaRows(targets)) {
        for (const Field* field : row.form.fields) {
            std::string& variables = known_[field->name()].variables;
            variables += (variables.empty() ? "" : ", ") + std::string(row.key);
        }
    }
    for (const FieldGroup* group : doc.groups())
        for (const Field* field : group->fields) known_[field->name()].firstValue = shownValue(*field);
}

std::string SettingFacts::variables(const Field& field) const {
    const auto found = known_.find(field.name());
    return found == known_.end() ? "" : found->second.variables;
}

std::string SettingFacts::firstValue(const Field& field) const {
    if (const auto option = options_.firstRunText(field)) return *option;
    const auto found = known_.find(field.name());
    return found == known_.end() ? "" : found->second.firstValue;
}

std::string SettingFacts::line(const Field& field) const {
    std::string text;
    const auto add = [&text](const std::string& part) {
        if (!part.empty()) text += (text.empty() ? "" : " ") + part;
    };
    if (const std::string names = variables(field); !names.empty()) add("Game variable " + names + ".");
    add(rangeText(field));
    if (const std::string first = firstValue(field); !first.empty()) add("At first " + sentence(first));
    return text;
}

}  // namespace gatehouse
