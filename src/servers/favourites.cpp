#include "servers/favourites.h"

#include "base/log.h"
#include "base/run_state.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "platform/dialogs.h"
#include "platform/files.h"

#include <limits>
#include <utility>

namespace gatehouse {

namespace {

constexpr std::size_t kMost = std::numeric_limits<short>::max();
constexpr std::size_t kLongest = 300;  // characters of an address

std::string keyOf(const std::string& address) { return lower(trim(address)); }

}  // namespace

void Favourites::load() const {
    if (std::exchange(loaded_, true)) return;
    const std::string path = ground_.run.AppDir + std::string(kFile);
    if (!ground_.files.fileExists(path)) return;
    try {
        const auto file = ground_.files.openText(path);
        std::string line;
        while (addresses_.size() < kMost && file->readLine(line))
            if (const std::string key = keyOf(line); !key.empty() && key.size() <= kLongest) addresses_.insert(key);
    } catch (const FileFailure& failure) {
        ground_.log.logEvent(failure.what(), true);
    }
}

bool Favourites::contains(const std::string& address) const {
    load();
    return !addresses_.empty() && addresses_.contains(keyOf(address));
}

void Favourites::set(const std::vector<std::string>& addresses, bool favourite) {
    load();
    for (const std::string& address : addresses) {
        if (favourite && addresses_.size() < kMost)
            addresses_.insert(keyOf(address));
        else if (!favourite)
            addresses_.erase(keyOf(address));
    }
    save();
    changed.emit();
}

void Favourites::save() {
    try {
        const auto file = ground_.files.replaceText(ground_.run.AppDir + std::string(kFile));
        for (const std::string& address : addresses_) file->writeLine(address);
        file->close();
    } catch (const FileFailure& failure) {
        ground_.log.logEvent(failure.what(), true);
        ground_.dialogs.show({.title = "Favourites",
                              .text = std::string("The favourites are not saved.\r\n\r\n") + failure.what(),
                              .icon = Icon::Stop,
                              .safeAnswer = Answer::Ok});
    }
}

}  // namespace gatehouse
