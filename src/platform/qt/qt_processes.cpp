#include "platform/qt/qt_processes.h"

#include "base/runtime_failure.h"
#include "platform/batch_script.h"
#include "platform/qt/native_paths.h"
#include "platform/qt/text_streams.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

namespace gatehouse {

namespace {

constexpr std::size_t kLargestBatchFile = std::size_t{1} << 20;

[[noreturn]] void failStart(const std::string& program, const std::string& why) {
    throw RuntimeFailure("Can't start " + program + ": " + why);
}

bool isAbsolute(const std::string& path) {
    return path.starts_with('\\') || path.starts_with('/') || (path.size() > 1 && path[1] == ':');
}

std::string pathIn(const std::string& folder, const std::string& name) {
    if (isAbsolute(name)) return name;
    return folder + (folder.ends_with('\\') || folder.ends_with('/') ? "" : "\\") + name;
}

/// Native path of the folder that a program is to run in.
std::string existingFolder(const std::string& folder, const std::string& program) {
    const auto native = resolveExisting(folder);
    struct stat found {};
    if (!native || ::stat(native->c_str(), &found) != 0) failStart(program, "there is no folder " + folder);
    if (!S_ISDIR(found.st_mode)) failStart(program, folder + " is not a folder");
    return *native;
}

/// Native path of a program's file.
std::string existingProgram(const std::string& path) {
    const auto native = resolveExisting(path);
    struct stat found {};
    if (!native || ::stat(native->c_str(), &found) != 0) failStart(path, "there is no such file");
    if (!S_ISREG(found.st_mode)) failStart(path, "it is not a file");
    return *native;
}

bool isWindowsProgram(const std::string& native, const std::string& path) {
    if (::access(native.c_str(), R_OK) != 0) return false;
    return FileReader(native, path).readBytes(2) == "MZ";
}

std::string absolute(const std::string& native) {
    std::error_code ignored;
    return std::filesystem::absolute(native, ignored).string();
}

}  // namespace

QtProcesses::QtProcesses(int argc, const char* const* argv) {
    for (int i = 1; i < argc; ++i) commandLine_ += (i > 1 ? " " : "") + std::string(argv[i]);
    std::error_code none;
    if (argc == 2 && std::filesystem::is_regular_file(argv[1], none))
        fileArgument_ = toProgramPath(std::filesystem::absolute(argv[1], none).lexically_normal().string());
}

std::string QtProcesses::environment(int position) const {
    if (position < 1) return "";
    for (char** entry = environ; entry && *entry; ++entry)
        if (--position == 0) return *entry;
    return "";
}

int QtProcesses::osPlatformId() const {
    // The line that knows users and rights, as the systems do that this runs on.
    return 2;
}

void QtProcesses::startBatch(const std::string& /*interpreter*/, const std::string& batchFile) {
    const auto native = resolveExisting(batchFile);
    if (!native) failStart(batchFile, "there is no such file");
    const std::string text = FileReader(*native, batchFile).readBytes(kLargestBatchFile + 1);
    if (text.size() > kLargestBatchFile) failStart(batchFile, "it is too large for a batch file");
    const BatchScript script = [&] {
        try {
            return parseBatchScript(text);
        } catch (const RuntimeFailure& failure) {
            failStart(batchFile, failure.what());
        }
    }();
    startIn(script.folder, script.arguments);
}

void QtProcesses::start(const std::string& programLine, const std::string& folder) {
    const std::vector<std::string> arguments = splitProgramLine(programLine);
    if (arguments.empty() || arguments.front().empty()) throw RuntimeFailure("Can't start a program without a name");
    startIn(folder, arguments);
}

void QtProcesses::startIn(const std::string& folder, const std::vector<std::string>& arguments) {
    const std::string path = pathIn(folder, arguments.front());
    const std::string nativeFolder = absolute(existingFolder(folder, path));
    const std::string program = absolute(existingProgram(path));

    std::vector<std::string> list = arguments;
    list.front() = program;
    std::string starter = program;
    if (isWindowsProgram(program, path)) {
        starter = findOnSearchPath("wine");
        if (starter.empty()) failStart(path, "it is a Windows program and Wine is not installed");
        list.insert(list.begin(), "wine");
    } else if (::access(program.c_str(), X_OK) != 0) {
        failStart(path, "the file is not marked as executable");
    }

    try {
        games_.start(starter, list, nativeFolder);
    } catch (const RuntimeFailure& failure) {
        failStart(path, failure.what());
    }
}

}  // namespace gatehouse
