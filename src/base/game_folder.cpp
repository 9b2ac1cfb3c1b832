#include "base/game_folder.h"

#include "base/options.h"
#include "base/run_state.h"
#include "base/runtime_failure.h"
#include "base/text.h"

#include <algorithm>

namespace gatehouse {

std::string gameFolderOf(const std::string& executablePath) {
    const std::string path = trim(executablePath);
    const auto folderEnd = path.rfind('\\');
    if (folderEnd == std::string::npos)
        throw RuntimeFailure("The game's place is not known: no " + std::string(kGameExecutable) + " was chosen");
    return trim(path.substr(0, folderEnd + 1));
}

std::string gameProgramOf(const std::string& executablePath) {
    const std::string path = trim(executablePath);
    const std::string name = bareName(path);
    if (name.empty() || name.size() == path.size() || equalNoCase(name, kGameExecutable))
        return std::string(kGameExecutable);
    const auto breaksLine = [](unsigned char c) { return c < ' ' || c == '"'; };
    if (std::any_of(name.begin(), name.end(), breaksLine))
        throw RuntimeFailure("The game's program " + quoted(oneLine(name)) + " can't be named in a command line");
    return name.find(' ') == std::string::npos ? name : quoted(name);
}

void recoverGameDir(RunState& run, const Options& options) {
    const std::string known = trim(run.GameDir);
    if (known.empty() || known == kNoOption) run.GameDir = gameFolderOf(options.getOption("exepath", kNoOption));
}

}  // namespace gatehouse
