#pragma once

#include "base/log.h"
#include "platform/processes.h"

#include <array>
#include <string>

namespace gatehouse {

/// The lines of `gatehouse.bat`. `gameDir` ends in a backslash; fails if it is too short to hold a drive.
std::array<std::string, 27> batchFileLines(const std::string& gameDir, const std::string& mod,
                                           const std::string& launchCommand);

/// The command interpreter that the environment names, or the platform's own.
std::string findComspec(const Processes& processes, Log& log);

}  // namespace gatehouse
