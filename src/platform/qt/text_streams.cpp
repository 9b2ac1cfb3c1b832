#include "platform/qt/text_streams.h"

#include "base/text.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace gatehouse {

namespace {

constexpr std::size_t kBufferSize = 65536;

/// Opens without waiting: a pipe that nobody serves must not hold the program up.
Descriptor openFile(const std::string& native, int flags, const char* doing, const std::string& path) {
    Descriptor descriptor(::open(native.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666));
    if (!descriptor) failFile(doing, path, errno);
    return descriptor;
}

}  // namespace

void failFile(const std::string& doing, const std::string& path, int error) {
    throw FileFailure(doing + " " + path + ": " + std::generic_category().message(error));
}

FileReader::FileReader(const std::string& native, std::string path)
    : descriptor_(openFile(native, O_RDONLY, "Can't open", path)), path_(std::move(path)), buffer_(kBufferSize, '\0') {
    struct stat found {};
    if (::fstat(descriptor_.get(), &found) != 0) failFile("Can't open", path_, errno);
    if (S_ISDIR(found.st_mode)) failFile("Can't open", path_, EISDIR);
    if (!S_ISREG(found.st_mode)) throw FileFailure("Can't open " + path_ + ": Not a file");
}

std::string_view FileReader::pending() {
    if (start_ == end_) {
        ssize_t count = 0;
        do {
            count = ::read(descriptor_.get(), buffer_.data(), buffer_.size());
        } while (count < 0 && errno == EINTR);
        if (count < 0) failFile("Can't read", path_, errno);
        start_ = 0;
        end_ = static_cast<std::size_t>(count);
    }
    return std::string_view(buffer_).substr(start_, end_ - start_);
}

bool FileReader::readLine(std::string& line) {
    line.clear();
    bool any = false;
    for (std::string_view bytes = pending(); !bytes.empty(); bytes = pending()) {
        any = true;
        const std::size_t end = bytes.find('\n');
        line += bytes.substr(0, end);
        if (end != std::string_view::npos) {
            start_ += end + 1;
            break;
        }
        start_ = end_;
    }
    if (line.ends_with('\r')) line.pop_back();
    return any;
}

std::string FileReader::readBytes(std::size_t count) {
    std::string result;
    while (result.size() < count) {
        const std::string_view bytes = pending().substr(0, count - result.size());
        if (bytes.empty()) break;
        result += bytes;
        start_ += bytes.size();
    }
    return result;
}

std::string_view FileReader::nextPiece() {
    const std::string_view bytes = pending();
    start_ = end_;
    return bytes;
}

FileWriter::FileWriter(const std::string& native, std::string path, WriteStart start)
    : descriptor_(
          openFile(native, O_WRONLY | O_CREAT | (start == WriteStart::Anew ? O_TRUNC : O_APPEND), "Can't write", path)),
      path_(std::move(path)) {}

void FileWriter::writeLine(const std::string& line) {
    line_ = line;
    line_ += kCrLf;
    writeAll(line_);
}

void FileWriter::writeAll(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor_.get(), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) failFile("Can't write", path_, errno);
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void FileWriter::close() {
    if (!descriptor_) return;
    // Some file systems tell only now that there was no room.
    if (::close(descriptor_.release()) != 0 && errno != EINTR) failFile("Can't write", path_, errno);
}

}  // namespace gatehouse
