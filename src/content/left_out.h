#pragma once

#include "base/log.h"
#include "platform/dialogs.h"

#include <string>
#include <vector>

namespace gatehouse {

/// What a scan has passed over although it looked like something to take, and why.
class LeftOut {
public:
    LeftOut(Log& log, Dialogs& dialogs) : log_(log), dialogs_(dialogs) {}

    void clear() { lines_.clear(); }
    /// Logs it, as serious, and keeps it for the list. `entry` is empty where it is about the whole archive.
    void add(const std::string& archive, const std::string& entry, const std::string& reason);
    /// Shows the list under this title, if anything is on it.
    void tell(const std::string& title) const;

private:
    Log& log_;
    Dialogs& dialogs_;
    std::vector<std::string> lines_;
};

}  // namespace gatehouse
