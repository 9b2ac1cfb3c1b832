// Makes the services, the program and its windows, and hands them to each other.

#include "platform/qt/guarded_application.h"
#include "platform/qt/native_paths.h"
#include "platform/qt/program_folder.h"
#include "platform/qt/qt_clipboard.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_files.h"
#include "platform/qt/qt_machine.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_processes.h"
#include "platform/qt/qt_resources.h"
#include "platform/qt/qt_settings_store.h"
#include "platform/qt/qt_udp_socket.h"
#include "platform/qt/qt_viewers.h"
#include "platform/qt/session_end.h"
#include "platform/qt/system_datagrams.h"
#include "platform/qt/zip_archives.h"
#include "platform/random.h"
#include "platform/x11/x11_windows.h"
#include "startup/gatehouse.h"
#include "startup/version.h"
#include "window/help_desk.h"
#include "window/main_window.h"
#include "window/scan_window.h"
#include "window/splash_window.h"
#include "window/widgets/hint_colour.h"
#include "window/widgets/icons.h"
#include "window/widgets/qt_dialogs.h"

#include <QApplication>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace {

constexpr const char* kPlatformVariable = "QT_QPA_PLATFORM";
/// Milliseconds. Nobody has asked for this scan, and mostly it is over at once.
constexpr int kModScanDelay = 400;

bool isSet(const char* name) {
    const char* value = std::getenv(name);
    return value && *value;
}

/// Without a display the toolkit would end the process; it draws into memory instead, and nobody is asked anything.
bool chooseDisplay() {
    if (!isSet(kPlatformVariable) && !isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY"))
        ::setenv(kPlatformVariable, "offscreen", 1);
    const char* platform = std::getenv(kPlatformVariable);
    return !platform || std::string_view(platform) != "offscreen";
}

/// What is answered on the terminal, without a window; nothing for any other arguments.
std::optional<std::string> terminalAnswer(int argc, char** argv) {
    const std::string_view only = argc == 2 ? argv[1] : "";
    if (only == "--version") return "gatehouse " + gatehouse::versionString();
    if (only != "--help" && only != "-h") return std::nullopt;
    return "Settings and servers for Quake 3: Arena\n\n"
           "usage: gatehouse               open the window\n"
           "       gatehouse FILE          open it with a document (.ghc) or a server list (.ghs)\n"
           "       gatehouse \"o PATH\"      the same, by the program's own form of a path, such as "
           "C:\\home\\me\\war.ghc\n"
           "       gatehouse \"r PATH\"      start the game with a document, and leave; the exit status is 1 if that "
           "failed\n"
           "       gatehouse --help        this text\n"
           "       gatehouse --version     the version\n\n"
           "Documents, lists and logs are in ~/.local/share/gatehouse, or in $GATEHOUSE_HOME. See gatehouse(1).";
}

int fail(const std::string& line) {
    std::cerr << line << '\n';
    return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace gatehouse;
    if (const auto answer = terminalAnswer(argc, argv)) {
        std::cout << *answer << std::endl;
        return std::cout ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    const bool interactive = chooseDisplay();

    QtEventLoop events;
    GuardedApplication<QApplication> application(events, argc, argv);
    QApplication::setApplicationName(QStringLiteral("gatehouse"));
    QApplication::setQuitOnLastWindowClosed(false);

    std::string programFolder;
    try {
        programFolder = toProgramPath(prepareProgramFolder(dataFolder()));
    } catch (const RuntimeFailure& failure) {
        return fail(failure.what());
    }

    QtFiles files(cacheFolder());
    QtSettingsStore settings(optionsFile());
    QtClock clock;
    QtDialogs dialogs(interactive, &events);
    QtClipboard clipboard;
    QtProcesses processes(argc, argv);
    QtMachine machine;
    X11Windows windows([&processes] { return processes.startedGames(); });
    ZipArchives archives;
    QtPictures pictures;
    QtUdpSocket socket(events);
    SystemNetwork network(events, clock);
    QtHostNames hostNames(events);
    QtViewers viewers(interactive);
    Random random;
    const QtResources resources;
    const Services services{files,   settings, events,   clock,  dialogs, clipboard, windows,  processes,
                            machine, archives, pictures, socket, network, hostNames, viewers, random, resources};

    Gatehouse program(services, programFolder);
    // Nobody looks at a splash that is drawn into memory.
    std::optional<HintColour> hintColour;
    std::optional<SplashWindow> splash;
    std::vector<std::unique_ptr<ScanWindow>> scanWindows;
    std::optional<HelpDesk> helpDesk;
    if (interactive) {
        QApplication::setWindowIcon(icon("gatehouse"));
        hintColour.emplace();
        splash.emplace(program.startup.splash, program.run);
        helpDesk.emplace(program.rules.help);
        for (ScanView* view :
             {&program.startup.finder.q3getgame, &program.content.mapScan.view, &program.content.modelScan.view})
            scanWindows.push_back(std::make_unique<ScanWindow>(*view, 0));
        scanWindows.push_back(std::make_unique<ScanWindow>(program.mods.discovery.q3getmods, kModScanDelay));
    }
    const auto printAny = [](const std::string& line) {
        if (!line.empty()) std::cerr << line << '\n';
    };
    const SessionEnd sessionEnd(
        events, {.end = [&](const std::string& reason) { printAny(program.endQuietly(reason)); },
                 .keep = [&](const std::string& reason) { static_cast<void>(program.keepUnsaved(reason)); }});
    // A run-and-leave never sees the main window: it is made when it is first wanted.
    std::unique_ptr<MainWindow> mainWindow;
    program.startup.q3.visible.changed.connect([&] {
        if (!mainWindow) mainWindow = std::make_unique<MainWindow>(program);
    });

    // The system's part of a look-up can't be called off, and the toolkit would wait for it.
    const auto leave = [&socket, &hostNames](int status) {
        if (socket.lookingUp() || hostNames.lookingUp()) std::_Exit(status);
        return status;
    };

    try {
        program.StartupDriver();
        if (interactive && program.startup.q3.visible.get())
            program.rescue.offer();
        else
            printAny(program.rescue.notice());
        if (program.startup.q3.visible.get()) events.run();
    } catch (const Shutdown&) {
        // The main window has unloaded inside a wait.
    } catch (const std::exception& failure) {
        return leave(fail(program.handleFatal(failure, interactive)));
    }
    // The box names no reason, and at the lowest level the log doesn't either.
    if (program.exitStatus() != EXIT_SUCCESS && program.run.RunErrors) return leave(fail(program.run.RunFailure));
    return leave(program.exitStatus());
}
