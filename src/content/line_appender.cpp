#include "content/line_appender.h"

#include "base/text.h"

#include <utility>

namespace gatehouse {

namespace {

bool endsInMidLine(Files& files, const std::string& path) {
    constexpr std::size_t kBlock = 65536;
    if (!files.fileExists(path)) return false;
    const auto file = files.openText(path);
    char last = '\n';
    for (std::string block = file->readBytes(kBlock); !block.empty(); block = file->readBytes(kBlock))
        last = block.back();
    return last != '\n';
}

}  // namespace

LineAppender::LineAppender(Files& files, const std::string& path)
    : midLine_(endsInMidLine(files, path)), file_(files.appendText(path)) {}

void LineAppender::write(const std::string& line) {
    const std::string text = std::string(midLine_ ? kCrLf : "") + oneLine(line) + std::string(kCrLf);
    midLine_ = true;  // a line of which only a part came on the disk
    const bool failedBefore = std::exchange(failed_, true);
    file_->write(text);
    midLine_ = false;
    failed_ = failedBefore;
}

}  // namespace gatehouse
