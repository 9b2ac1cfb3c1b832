#pragma once

#include <filesystem>
#include <string>

namespace gatehouse::practice {

/// The log of all that the game did: lines appended to one file that several runs may share.
class Journal {
public:
    explicit Journal(const std::filesystem::path& file);
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// Appends one line at once, control characters made visible. A run's log is bounded; beyond that nothing is added.
    void write(const std::string& line);

private:
    int descriptor_;
    std::size_t written_ = 0;
};

}  // namespace gatehouse::practice
