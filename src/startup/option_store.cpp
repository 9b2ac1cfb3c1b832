#include "startup/option_store.h"

#include "base/runtime_failure.h"

namespace gatehouse {

std::string OptionStore::getOption(const std::string& key, const std::string& fallback) const {
    return store_.read(key).value_or(fallback);
}

void OptionStore::setOption(const std::string& key, const std::string& text) {
    try {
        store_.write(key, text);
    } catch (const RuntimeFailure& failure) {
        log_.logEvent("Could not store option " + key + ": " + failure.what(), true);
    }
}

void OptionStore::deleteSection() {
    try {
        store_.deleteSection();
    } catch (const RuntimeFailure& failure) {
        log_.logEvent(std::string("Could not remove the options: ") + failure.what(), true);
    }
}

}  // namespace gatehouse
