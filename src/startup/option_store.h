#pragma once

#include "base/log.h"
#include "base/options.h"
#include "platform/dialogs.h"
#include "platform/settings_store.h"

#include <map>
#include <string>

namespace gatehouse {

/// The options, kept in the settings store.
class OptionStore : public Options {
public:
    OptionStore(SettingsStore& store, Log& log, Dialogs& dialogs) : store_(store), log_(log), dialogs_(dialogs) {}

    std::string getOption(const std::string& key, const std::string& fallback) const override;
    void setOptions(const Values& values) override;
    void deleteSection() override;

private:
    void tellOnce(const std::string& reason);

    SettingsStore& store_;
    Log& log_;
    Dialogs& dialogs_;
    std::map<std::string, std::string> unstored_;  ///< what the store has refused
    bool told_ = false;
};

}  // namespace gatehouse
