#include "launch/run_command.h"

#include "base/game_folder.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "launch/batch_file.h"

#include <algorithm>
#include <utility>

namespace gatehouse {

namespace {

constexpr std::string_view kFilesMade = "CFG & BAT files have been created to run the current configuration.\r\n";

/// Entries of the option `q3runoptions`.
enum RunOption { kLaunch = 0, kAsk = 1, kFilesOnly = 2 };

}  // namespace

RunCommand::RunCommand(const Parts& parts) : with_(parts), commandLine_(with_.run, with_.doc, with_.mods, with_.log) {}

void RunCommand::mfilerun_Click() {
    try {
        if (with_.run.CurrentMode.get() == kBenchmark) {
            benchmarkWanted.emit();
            return;
        }
        makeConfig();
        makeBatchFile();
        const std::string Comspec = findComspec(with_.processes, with_.log);
        if (launchWanted()) launch(Comspec);
    } catch (const RuntimeFailure& failure) {
        fail(failure.what());
    }
}

void RunCommand::makeConfig() {
    const std::string path = launchFile(".cfg");
    with_.log.logEvent("Creating Launch Files");
    with_.log.logEvent("Creating cfg: " + path);
    with_.gameConfig.open(create(path));
    with_.gameConfig.WriteHeader();
    with_.log.logEvent("->Created OK.");
    commandLine_.begin(gameProgramOf(with_.q3FilePath.text()), with_.extracmdline.text());
    writeMode();
    with_.gameConfig.WriteFooter();
    with_.gameConfig.close();
    with_.log.logEvent("config file closed.");
}

void RunCommand::writeMode() {
    GameConfig& config = with_.gameConfig;
    switch (with_.run.CurrentMode.get()) {
        case kConnect:
            config.WritePlayerVars();
            config.WriteKeyBindings();
            commandLine_.BuildClientCommandLine();
            commandLine_.connectTo(selectedAddress());
            break;
        case kListen:
            config.WriteServerVars();
            config.WritePlayerVars();
            config.WriteKeyBindings();
            commandLine_.BuildServerCommandLine();
            commandLine_.BuildClientCommandLine();
            break;
        case kDedicated:
            config.WriteServerVars();
            commandLine_.BuildServerCommandLine();
            break;
        default:
            break;
    }
}

void RunCommand::makeBatchFile() {
    const std::string path = launchFile(".bat");
    with_.log.logEvent("Creating bat: " + path);
    const auto file = create(path);
    with_.log.logEvent("->batch file created OK");
    for (const std::string& line : batchFileLines(with_.run.GameDir, with_.mods.current().dir, with_.run.LaunchCommand))
        file->writeLine(line);
    with_.log.logEvent("->batch file contents written");
    file->close();
    with_.log.logEvent("->batch file closed");
}

bool RunCommand::launchWanted() {
    MessageBox box{.title = "Run", .text = std::string(kFilesMade)};
    switch (with_.q3runoptions.index()) {
        case kLaunch:
            return true;
        case kAsk:
            box.text += "Do you want to launch Quake 3: Arena with these settings?";
            box.buttons = Buttons::YesNo;
            box.icon = Icon::Question;
            box.safeAnswer = Answer::No;
            return with_.dialogs.show(box) == Answer::Yes;
        case kFilesOnly:
            box.text += "Quake 3: Arena will not be launched.";
            box.icon = Icon::Information;
            box.safeAnswer = Answer::Ok;
            with_.dialogs.show(box);
            return false;
        default:
            return false;
    }
}

void RunCommand::launch(const std::string& Comspec) {
    const std::string batchFile = launchFile(".bat");
    const std::string command = Comspec + " /c " + quoted(batchFile);
    with_.log.logEvent("Launching Quake 3 (" + command + ")");
    try {
        with_.processes.startBatch(Comspec, batchFile);
    } catch (const RuntimeFailure&) {
        with_.log.logEvent("->Could not shell to " + command);
        throw;
    }
}

std::string RunCommand::launchFile(const std::string& extension) const {
    return with_.run.GameDir + with_.mods.current().dir + "\\gatehouse" + extension;
}

std::unique_ptr<TextWriter> RunCommand::create(const std::string& path) {
    try {
        return with_.files.replaceText(path);
    } catch (const RuntimeFailure&) {
        with_.log.logEvent("->Could not create " + path, true);
        throw;
    }
}

std::string RunCommand::selectedAddress() const {
    if (with_.iplist.current() == 0) throw RuntimeFailure("Object variable not set: no server is selected");
    const std::string& address = with_.iplist.at(with_.iplist.current()).Address;
    // The game reads its command line as commands: an address, which may come from anybody, must not become one.
    const auto isUnsafe = [](char c) {
        return static_cast<unsigned char>(c) <= ' ' || c == 0x7F || c == '"' || c == ';' || c == '+';
    };
    if (std::any_of(address.begin(), address.end(), isUnsafe))
        throw RuntimeFailure("The game can't be given the address " + quoted(address));
    return address;
}

void RunCommand::fail(const std::string& reason) {
    with_.gameConfig.abandon();
    with_.run.RunErrors = true;
    with_.run.RunFailure = reason;
    with_.log.logEvent(reason, true);
    with_.dialogs.show({.title = "Error",
                        .text = "An error occurred when trying to run the game. Check the error log.\r\n\r\n" + reason,
                        .icon = Icon::Stop,
                        .safeAnswer = Answer::Ok});
}

}  // namespace gatehouse
