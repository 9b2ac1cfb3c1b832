#pragma once

#include "platform/files.h"

#include <memory>
#include <string>

namespace gatehouse {

/// Adds lines to a text file, which is made if there is none. A line that stands there without an end gets one first.
class LineAppender {
public:
    /// Fails with `FileFailure`, as does each line.
    LineAppender(Files& files, const std::string& path);
    void write(const std::string& line);
    void close() { file_->close(); }
    /// Whether a line has failed, so far.
    bool failed() const { return failed_; }

private:
    bool midLine_;
    bool failed_ = false;
    std::unique_ptr<TextWriter> file_;
};

}  // namespace gatehouse
