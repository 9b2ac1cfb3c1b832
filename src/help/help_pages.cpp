#include "help/help_pages.h"

#include "base/runtime_failure.h"
#include "help/markup.h"

namespace gatehouse {

std::string HelpPages::source(int page) const {
    if (page < 0 || page >= static_cast<int>(kHelpPages.size()))
        throw RuntimeFailure("Index out of bounds: there is no help page " + std::to_string(page));
    return resources_.text(kHelpPages[static_cast<std::size_t>(page)]);
}

std::string HelpPages::title(int page) const {
    const std::string text = source(page);
    const auto begin = text.find("<h1>");
    const auto end = text.find("</h1>");
    if (begin == std::string::npos || end == std::string::npos) return {};
    return plainText(text.substr(begin, end - begin));
}

}  // namespace gatehouse
