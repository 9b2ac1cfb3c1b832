#include "journal.h"

#include "command_text.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace gatehouse::practice {

namespace {

constexpr std::size_t kMaxBytes = 32 * 1024 * 1024;

}  // namespace

Journal::Journal(const std::filesystem::path& file)
    : descriptor_(open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOFOLLOW, 0644)) {
    if (descriptor_ < 0) perror("practice.log");
}

Journal::~Journal() {
    if (descriptor_ >= 0) close(descriptor_);
}

void Journal::write(const std::string& line) {
    // One call a line, so that the lines of two games that run at once never mix.
    const std::string text = printable(line) + "\n";
    written_ += text.size();
    if (descriptor_ < 0 || written_ > kMaxBytes) return;
    if (::write(descriptor_, text.data(), text.size()) < 0) written_ = kMaxBytes;
}

}  // namespace gatehouse::practice
