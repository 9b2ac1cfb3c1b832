#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace gatehouse {

/// What a launch batch file asks for: one program in one folder.
struct BatchScript {
    std::string folder;                  ///< in the program's form, such as `C:\Quake III Arena`
    std::vector<std::string> arguments;  ///< the program first
};

/// Splits a program line at blanks; double quotes group and are dropped. No other character means anything.
std::vector<std::string> splitProgramLine(std::string_view line);

/// Reads the text of a launch batch file: comments and "@echo off", a drive, `cd "..."`, one program line, `exit`.
/// Fails with the line that it can't carry out, and for a file without a program line.
BatchScript parseBatchScript(std::string_view text);

}  // namespace gatehouse
