#include "launch/batch_file.h"

#include "base/text.h"

namespace gatehouse {

namespace {

constexpr int kNtPlatform = 2;

bool detectNt(const Processes& processes, Log& log) {
    const int platform = processes.osPlatformId();
    if (platform == 0)
        log.logEvent("Problem getting OS version. Assuming Win95/98", true);
    else
        log.logEvent(platform == kNtPlatform ? "OS is Windows NT" : "OS is Win95/98");
    return platform == kNtPlatform;
}

}  // namespace

std::array<std::string, 27> batchFileLines(const std::string& gameDir, const std::string& mod,
                                           const std::string& launchCommand) {
    const std::string rule = "REM " + std::string(68, '=');
    const std::string stem = gameDir + mod + "\\gatehouse";
    return {
        "",
        "@echo off",
        "",
        rule,
        "REM GATEHOUSE.BAT",
        rule,
        "",
        "REM Temporary file created by Gatehouse to start a Quake 3: Arena Server",
        "",
        "REM Gatehouse creates the following files every time you",
        "REM start a game: ",
        "",
        "REM " + stem + ".cfg",
        "REM " + stem + ".bat",
        "",
        "REM if you want to use the same config again without running gatehouse,",
        "REM just rename these two files to something else, for e.g. teamplay.bat",
        "REM and teamplay.cfg",
        "",
        "REM You can then put a shortcut to teamplay.bat on your desktop and",
        "REM run the game by double-clicking on it.",
        rule,
        "",
        left(gameDir, 1) + ":",
        "cd " + quoted(cut(gameDir, 2, 1)),
        launchCommand,
        "exit",
    };
}

std::string findComspec(const Processes& processes, Log& log) {
    const bool OsIsNt = detectNt(processes, log);

    log.logEvent("Getting COMSPEC");
    constexpr std::string_view kVariable = "COMSPEC=";
    for (int position = 1;; ++position) {
        const std::string entry = processes.environment(position);
        if (entry.empty()) break;
        if (!startsWithNoCase(entry, kVariable)) continue;
        std::string Comspec = entry.substr(kVariable.size());
        log.logEvent("Found comspec = " + Comspec);
        return Comspec;
    }

    std::string fallback = OsIsNt ? "c:\\winnt\\system32\\cmd.exe" : "c:\\command.com";
    log.logEvent("Could not find comspec. Defaulting to " + fallback);
    return fallback;
}

}  // namespace gatehouse
