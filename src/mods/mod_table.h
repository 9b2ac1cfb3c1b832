#pragma once

#include "config/document_host.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace gatehouse {

/// One option of a mod.
struct ModOption {
    std::string type;  ///< "checkbox", "textbox", "listbox" or "number"
    std::string name;  ///< console variable
    std::string text;  ///< label
    std::string value;
    std::vector<std::string> listitems;
    std::vector<std::string> listdata;
    bool server = false;
    bool client = false;
    std::string destination;
    std::int32_t increment = 0;  ///< below 1: no spin buttons
    std::int32_t min = 0;
    std::int32_t max = 0;
};

/// One action of a mod that can be bound to a key.
struct ModKey {
    std::string key;  ///< label
    std::string cmd;  ///< console command
};

struct ModEntry {
    std::string name;
    std::string dir;
    std::string author;
    std::string url;
    std::string email;
    std::int16_t cvars = 0;  ///< declared number of options
    std::int16_t keys = 0;   ///< declared number of keys
    std::array<std::string, 10> gtype;  ///< game type names by `g_gametype` number; blank: not offered
    std::vector<ModOption> options;
    std::vector<ModKey> modKeys;

    /// Options that are both declared and there: what loops over options runs to.
    std::size_t optionCount() const;
};

/// The mods that are known, from 1; entry 0 is a blank one.
class ModTable {
public:
    std::int16_t modCount() const { return static_cast<std::int16_t>(entries_.size() - 1); }
    /// Fails outside of 0 to `modCount`.
    ModEntry& at(int index);
    const ModEntry& at(int index) const;
    /// Adds an entry at the end and returns its index. Fails when the count leaves 16 bits.
    std::int16_t add(ModEntry entry);
    void clear();

    std::int16_t currentMod() const { return current_; }
    /// Fails outside of 0 to `modCount`.
    void setCurrentMod(int index);
    ModEntry& current() { return at(current_); }
    const ModEntry& current() const { return at(current_); }

    /// The values of all options of all mods.
    std::vector<std::string> values() const;
    /// Fails unless there is a value for each option.
    void setValues(const std::vector<std::string>& values);

    std::vector<ModVariable> variables() const;
    void setVariable(const std::string& name, const std::string& value);

private:
    std::vector<ModEntry> entries_ = std::vector<ModEntry>(1);
    std::int16_t current_ = 0;
};

}  // namespace gatehouse
