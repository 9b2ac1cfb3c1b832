#pragma once

#include <string>

namespace gatehouse {

/// The folder of the data that comes with the program, in native form: beside the running program as an installation
/// puts it, in the prefix that the build is for, or in the build tree. Fails where there is none.
std::string dataFolder();

/// The program folder in native form: `$GATEHOUSE_HOME`, otherwise `gatehouse` in the user's data folder. It is
/// made when it is missing, and gets what it never had of the read-only `dataFolder`; what is there already is never
/// overwritten. Fails when it can't be made or filled.
std::string prepareProgramFolder(const std::string& dataFolder);

/// The file of the user's options, in native form.
std::string optionsFile();

/// The folder of what may be lost, in native form.
std::string cacheFolder();

}  // namespace gatehouse
