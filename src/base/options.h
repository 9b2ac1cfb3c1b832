#pragma once

#include <string>

namespace gatehouse {

/// The options of the user and the machine, all of them texts, kept outside of any document.
class Options {
public:
    virtual ~Options() = default;
    /// The stored text, or `fallback` when the key is missing. Fails when the store can't be read.
    virtual std::string getOption(const std::string& key, const std::string& fallback) const = 0;
    /// A store that can't be written costs a serious log line and no more: the value holds for this run.
    virtual void setOption(const std::string& key, const std::string& text) = 0;
    /// The same for taking all options away.
    virtual void deleteSection() = 0;
};

}  // namespace gatehouse
