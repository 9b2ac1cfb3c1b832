#include "base/game_folder.h"

#include "base/options.h"
#include "base/run_state.h"
#include "base/runtime_failure.h"
#include "base/text.h"

namespace gatehouse {

std::string gameFolderOf(const std::string& executablePath) {
    const std::string path = trim(executablePath);
    if (path.size() < kGameExecutable.size())
        throw RuntimeFailure("The game's place is not known: no " + std::string(kGameExecutable) + " was chosen");
    return trim(cut(path, 0, static_cast<long>(kGameExecutable.size())));
}

void recoverGameDir(RunState& run, const Options& options) {
    const std::string known = trim(run.GameDir);
    if (known.empty() || known == kNoOption) run.GameDir = gameFolderOf(options.getOption("exepath", kNoOption));
}

}  // namespace gatehouse
