#pragma once

#include "base/runtime_failure.h"

#include <string>
#include <string_view>

namespace gatehouse {

/// A line of a file that can't be taken. The message names the file, the line's number, the line and what is wrong with
/// it (of both the first 200 characters, with control bytes as blanks).
class LineFailure : public RuntimeFailure {
public:
    LineFailure(std::string path, long lineNumber, const std::string& line, std::string_view reason);

    const std::string& path() const { return path_; }
    long lineNumber() const { return lineNumber_; }
    /// Its first 200 characters.
    const std::string& line() const { return line_; }

private:
    std::string path_;
    long lineNumber_;
    std::string line_;
};

}  // namespace gatehouse
