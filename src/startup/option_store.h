#pragma once

#include "base/log.h"
#include "platform/settings_store.h"

#include <string>

namespace gatehouse {

/// The options of the user and the machine, all of them texts, kept outside of any document.
class OptionStore {
public:
    OptionStore(SettingsStore& store, Log& log) : store_(store), log_(log) {}

    /// The stored text, or `fallback` when the key is missing. Fails when the store can't be read.
    std::string getOption(const std::string& key, const std::string& fallback) const;
    /// A store that can't be written costs a serious log line and no more: the value holds for this run.
    void setOption(const std::string& key, const std::string& text);
    /// The same for taking all options away.
    void deleteSection();

private:
    SettingsStore& store_;
    Log& log_;
};

}  // namespace gatehouse
