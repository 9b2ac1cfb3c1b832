#include "platform/replaced_file.h"

namespace gatehouse {

ReplacedFile::ReplacedFile(Files& files, const std::string& path) : files_(files), path_(path), beside_(path + ".new") {
    // A file that its owner has protected stays as it is: taking its place would go round that.
    if (files_.fileExists(path_)) files_.appendText(path_)->close();
    writer_ = files_.createText(beside_);
}

ReplacedFile::~ReplacedFile() {
    if (!writer_) return;
    writer_.reset();
    try {
        files_.deleteFile(beside_, true);
    } catch (const FileFailure&) {
        // It lies beside and does no harm.
    }
}

void ReplacedFile::finish(const std::string& text) {
    writer_->write(text);
    writer_->close();
    files_.renameFile(beside_, path_);
    writer_.reset();
}

}  // namespace gatehouse
