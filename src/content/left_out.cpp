#include "content/left_out.h"

#include "base/text.h"

namespace gatehouse {

void LeftOut::add(const std::string& archive, const std::string& entry, const std::string& reason) {
    constexpr std::size_t kLongestShown = 300;
    const std::string shown = entry.size() > kLongestShown ? left(entry, kLongestShown) + "..." : entry;
    const std::string line = oneLine(archive + (entry.empty() ? "" : ": " + shown) + ": " + reason);
    log_.logEvent("left out: " + line, true);
    lines_.push_back(line);
}

void LeftOut::tell(const std::string& title) const {
    if (lines_.empty()) return;
    dialogs_.showList({.title = title, .text = "This was left out, and why:", .lines = lines_});
}

}  // namespace gatehouse
