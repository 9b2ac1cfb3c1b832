#include "platform/file_tools.h"

namespace gatehouse {

std::string freePath(const Files& files, const std::string& folder, std::string_view stem, std::string_view ending) {
    for (long number = 1;; ++number) {
        std::string path = folder + std::string(stem);
        if (number > 1) path += "-" + std::to_string(number);
        path += ending;
        if (!files.fileExists(path) && !files.folderExists(path)) return path;
    }
}

void replaceFile(Files& files, const std::string& path, const std::string& text) {
    const auto file = files.replaceText(path);
    file->write(text);
    file->close();
}

}  // namespace gatehouse
