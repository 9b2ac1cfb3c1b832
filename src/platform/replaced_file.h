#pragma once

#include "platform/files.h"

#include <memory>
#include <string>

namespace gatehouse {

/// A text put in place of a file, whole or not at all: it is written beside the old file, which it then replaces.
class ReplacedFile {
public:
    /// Makes the file beside. Fails where the old file, or its folder, can't be written.
    ReplacedFile(Files& files, const std::string& path);
    /// Takes the file beside away again if it was not finished.
    ~ReplacedFile();
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    /// Writes the text and takes the old file's place. Fails with the old file as it was.
    void finish(const std::string& text);

private:
    Files& files_;
    std::string path_;
    std::string beside_;
    std::unique_ptr<TextWriter> writer_;
};

}  // namespace gatehouse
