#pragma once

#include "platform/files.h"
#include "platform/qt/descriptor.h"

#include <sys/types.h>

#include <string>
#include <string_view>

namespace gatehouse {

/// A file that takes the place of another, whole or not at all. What is written goes to a new file beside the old one;
/// `close` syncs it, gives it the old one's name and syncs the folder. Left unclosed, it goes without a trace.
///
/// Mode and owner are the old file's; a link stays and its target is replaced. A write-protected file is refused. Where
/// the folder takes no new file, the old one is overwritten in its place and put back should that fail.
class FileReplacer : public TextWriter {
public:
    /// `native` is the file, there or not; `path` is for messages. Fails where neither it nor its folder can be
    /// written.
    FileReplacer(const std::string& native, std::string path);
    FileReplacer(const FileReplacer&) = delete;
    FileReplacer& operator=(const FileReplacer&) = delete;
    ~FileReplacer() override;

    void writeLine(const std::string& line) override;
    void write(const std::string& bytes) override { writeAll(bytes); }
    void writeAll(std::string_view bytes);
    /// Fails with the old file as it was, but for a folder that can't be synced: then the new one stands there whole.
    void close() override;

private:
    bool openBeside();
    void keepOwnerAndMode() const;
    /// Gives a nameless file its name. False if that isn't possible here.
    bool nameBeside();
    void removeBeside();
    /// False where the folder doesn't let the old file be replaced.
    bool takePlace();
    void overwrite();
    void removeStrays() const;
    [[noreturn]] void fail(int error) const;

    std::string target_;
    std::string name_;  ///< of the target in its folder
    std::string path_;
    bool exists_ = false;
    mode_t mode_ = 0;
    uid_t owner_ = 0;
    gid_t group_ = 0;
    Descriptor folder_;
    Descriptor file_;     ///< the new file; not open when the old one is to be overwritten
    std::string beside_;  ///< its name in the folder, once it has one
    std::string text_;    ///< what is to be written over the old file
};

}  // namespace gatehouse
