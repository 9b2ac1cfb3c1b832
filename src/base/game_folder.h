#pragma once

#include <string>
#include <string_view>

namespace gatehouse {

class Options;
struct RunState;

/// The game's file name. Wherever a path is cut back to its folder, the cut has this name's length, whatever the file
/// is really called.
inline constexpr std::string_view kGameExecutable = "quake3.exe";
/// How the names of the game's archives end, in any case, and the name of the one that it comes with.
inline constexpr std::string_view kArchiveEnd = "pk3";
inline constexpr std::string_view kGameArchive = "pak0.pk3";

/// The trimmed path less the length of the game's file name, trimmed. Fails for a shorter path.
std::string gameFolderOf(const std::string& executablePath);

/// A run that knows no folder of the game takes it from the path of the game's file. Fails where there is none either.
void recoverGameDir(RunState& run, const Options& options);

}  // namespace gatehouse
