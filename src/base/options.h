#pragma once

#include <string>
#include <utility>
#include <vector>

namespace gatehouse {

/// What stands for an option that was never stored.
inline constexpr const char* kNoOption = "none";

/// The options of the user and the machine, all of them texts, kept outside of any document.
class Options {
public:
    using Values = std::vector<std::pair<std::string, std::string>>;

    virtual ~Options() = default;
    /// The text set last, or `fallback` when there is none. Fails when the store can't be read.
    virtual std::string getOption(const std::string& key, const std::string& fallback) const = 0;
    /// Stores all of them or none. A store that can't be written costs a serious log line, and one message a run: the
    /// values hold for this run.
    virtual void setOptions(const Values& values) = 0;
    /// The same for taking all options away.
    virtual void deleteSection() = 0;

    void setOption(const std::string& key, const std::string& text) { setOptions({{key, text}}); }
};

}  // namespace gatehouse
