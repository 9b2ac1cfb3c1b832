#pragma once

#include "config/settings_document.h"
#include "startup/options.h"

#include <map>
#include <string>

namespace gatehouse {

/// What is to be said of a setting beside its caption and its hint. All of it is read from where it is declared: the
/// range and the entries from the field, the variable from the rows of the document, the first value from the default
/// document and from the options of a first run.
class SettingFacts {
public:
    /// The game types of the live document's mod count among its entries.
    SettingFacts(const SettingsDocument& live, const OptionKeeper& options);

    /// In one line of plain text, such as "Game variable cg_fov. 1 to 360. At first 90."; empty where there is nothing.
    std::string line(const Field& field) const;
    /// The game's variables that the field stands for, parted by a comma.
    std::string variables(const Field& field) const;
    /// The value before anybody has changed it, as a person sees it.
    std::string firstValue(const Field& field) const;

private:
    struct Known {
        std::string variables;
        std::string firstValue;
    };
    std::map<std::string, Known> known_;
    const OptionKeeper& options_;
};

}  // namespace gatehouse
