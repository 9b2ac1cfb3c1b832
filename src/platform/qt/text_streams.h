#pragma once

#include "platform/files.h"
#include "platform/qt/descriptor.h"

#include <string>

namespace gatehouse {

/// Fails with what was being done, the path and the system's reason, such as "Can't open C:\a: Permission denied".
[[noreturn]] void failFile(const std::string& doing, const std::string& path, int error);

/// Reads a regular file through a buffer of its own. `path` is for messages.
class FileReader : public TextReader {
public:
    FileReader(const std::string& native, std::string path);

    bool readLine(std::string& line) override;
    std::string readBytes(std::size_t count) override;

    /// The next piece of the file, of any size; empty at its end. Holds until the next read.
    std::string_view nextPiece();
    const Descriptor& descriptor() const { return descriptor_; }

private:
    /// Bytes that are read but not given out yet; reads on when there are none. Empty at the end of the file.
    std::string_view pending();

    Descriptor descriptor_;
    std::string path_;
    std::string buffer_;
    std::size_t start_ = 0;
    std::size_t end_ = 0;
};

enum class WriteStart { Anew, AtEnd };

/// Writes straight to the operating system, one call for each line. `path` is for messages.
class FileWriter : public TextWriter {
public:
    FileWriter(const std::string& native, std::string path, WriteStart start);

    void writeLine(const std::string& line) override;
    void write(const std::string& bytes) override { writeAll(bytes); }
    void close() override;

    void writeAll(std::string_view bytes);

private:
    Descriptor descriptor_;
    std::string path_;
    std::string line_;
};

}  // namespace gatehouse
