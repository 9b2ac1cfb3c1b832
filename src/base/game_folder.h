#pragma once

#include <string>
#include <string_view>

namespace gatehouse {

class Options;
struct RunState;

/// The game's file name, where no other was chosen.
inline constexpr std::string_view kGameExecutable = "quake3.exe";
/// How the names of the game's archives end, in any case, and the name of the one that it comes with.
inline constexpr std::string_view kArchiveEnd = "pk3";
inline constexpr std::string_view kGameArchive = "pak0.pk3";

/// The folder of a path with its backslash, trimmed. Fails for a path that names no folder.
std::string gameFolderOf(const std::string& executablePath);

/// How the program of that path is called in a command line that runs in its folder; the game's usual name where the
/// path names no folder. Fails for a name that would end the line or its quotes.
std::string gameProgramOf(const std::string& executablePath);

/// A run that knows no folder of the game takes it from the path of the game's file. Fails where there is none either.
void recoverGameDir(RunState& run, const Options& options);

}  // namespace gatehouse
