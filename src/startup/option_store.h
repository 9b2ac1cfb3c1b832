#pragma once

#include "base/log.h"
#include "base/options.h"
#include "platform/settings_store.h"

#include <string>

namespace gatehouse {

/// The options, kept in the settings store.
class OptionStore : public Options {
public:
    OptionStore(SettingsStore& store, Log& log) : store_(store), log_(log) {}

    std::string getOption(const std::string& key, const std::string& fallback) const override;
    void setOption(const std::string& key, const std::string& text) override;
    void deleteSection() override;

private:
    SettingsStore& store_;
    Log& log_;
};

}  // namespace gatehouse
