#include "mods/mod_table.h"

#include "base/numbers.h"
#include "base/runtime_failure.h"
#include "base/text.h"

#include <algorithm>
#include <utility>

namespace gatehouse {

std::size_t ModEntry::optionCount() const {
    // A file may declare more than it holds, or less: neither number alone is safe to run to.
    return cvars < 0 ? 0 : std::min(static_cast<std::size_t>(cvars), options.size());
}

ModEntry& ModTable::at(int index) { return const_cast<ModEntry&>(std::as_const(*this).at(index)); }

const ModEntry& ModTable::at(int index) const {
    if (index < 0 || index > modCount())
        throw RuntimeFailure("Index out of bounds: mod " + std::to_string(index) + " of " + std::to_string(modCount()));
    return entries_[static_cast<std::size_t>(index)];
}

std::int16_t ModTable::add(ModEntry entry) {
    const std::int16_t index = addInt16(modCount(), 1);
    entries_.push_back(std::move(entry));
    return index;
}

void ModTable::clear() {
    entries_.assign(1, {});
    current_ = 0;
}

void ModTable::setCurrentMod(int index) {
    static_cast<void>(at(index));
    current_ = static_cast<std::int16_t>(index);
}

std::vector<std::string> ModTable::values() const {
    std::vector<std::string> values;
    for (const ModEntry& mod : entries_)
        for (const ModOption& option : mod.options) values.push_back(option.value);
    return values;
}

void ModTable::setValues(const std::vector<std::string>& values) {
    std::size_t next = 0;
    for (ModEntry& mod : entries_)
        for (ModOption& option : mod.options) option.value = values.at(next++);
}

std::vector<ModVariable> ModTable::variables() const {
    const ModEntry& mod = current();
    std::vector<ModVariable> variables;
    for (std::size_t i = 0; i < mod.optionCount(); ++i)
        variables.push_back({mod.options[i].name, mod.options[i].value});
    return variables;
}

void ModTable::setVariable(const std::string& name, const std::string& value) {
    ModEntry& mod = current();
    for (std::size_t i = 0; i < mod.optionCount(); ++i) {
        if (!equalNoCase(mod.options[i].name, name)) continue;
        mod.options[i].value = value;
        return;
    }
}

}  // namespace gatehouse
