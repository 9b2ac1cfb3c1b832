#include "startup/option_store.h"

#include "base/runtime_failure.h"

#include <algorithm>
#include <utility>

namespace gatehouse {

std::string OptionStore::getOption(const std::string& key, const std::string& fallback) const {
    const auto refused = unstored_.find(key);
    return refused != unstored_.end() ? refused->second : store_.read(key).value_or(fallback);
}

void OptionStore::setOptions(const Values& values) {
    for (const auto& [key, text] : values) unstored_[key] = text;
    try {
        // What was refused before is tried again, each key in its place.
        Values all = values;
        for (const auto& refused : unstored_)
            if (std::find(all.begin(), all.end(), Values::value_type(refused)) == all.end()) all.emplace_back(refused);
        store_.write(all);
        unstored_.clear();
    } catch (const RuntimeFailure& failure) {
        for (const auto& [key, text] : values)
            log_.logEvent("Could not store option " + key + ": " + failure.what(), true);
        tellOnce(failure.what());
    }
}

void OptionStore::deleteSection() {
    try {
        store_.deleteSection();
        unstored_.clear();
    } catch (const RuntimeFailure& failure) {
        log_.logEvent(std::string("Could not remove the options: ") + failure.what(), true);
        tellOnce(failure.what());
    }
}

void OptionStore::tellOnce(const std::string& reason) {
    if (std::exchange(told_, true)) return;
    dialogs_.show({.title = "Options",
                   .text = "Your options can't be stored: what you change holds for this run only.\r\n\r\n" + reason,
                   .icon = Icon::Stop,
                   .safeAnswer = Answer::Ok});
}

}  // namespace gatehouse
