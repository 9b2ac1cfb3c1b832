// Times the picture of a map from the key that selects the map until the display has it: for the first time, which
// makes the preview's window; with the window hidden before; and with another map's picture in it.

#include "platform/qt/native_paths.h"
#include "platform/qt/qt_files.h"
#include "platform/qt/qt_pictures.h"
#include "support/core/started_program.h"
#include "window/main_window.h"
#include "window/widgets/table_view.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace {

using namespace gatehouse;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// A picture with much to unpack in it, a different one for each seed.
void makePicture(const fs::path& path, int seed) {
    QImage image(1024, 768, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, qRgb(x * y / 64, (x + seed) / 4, (x ^ y) + seed));
    if (!image.save(QString::fromStdString(path.string()))) throw std::runtime_error("can't make " + path.string());
}

/// The folders of a program that was used before: two maps with their pictures.
void makeFolders(const fs::path& home, const fs::path& game) {
    for (const fs::path& folder : {home / "mods", home / "levelshots", game / "baseq3"}) fs::create_directories(folder);
    const fake::UsedWorld world;
    for (const char* file : {"aliases.txt", "default.ghs", "usermdls.txt", "mods/00-baseq3.ghm"})
        std::ofstream(home / file) << world.files.content(std::string("C:\\gh\\") + file);
    std::ofstream(home / "usermaps.txt") << "UPPER First\r\nLOWER Second\r\n";
    makePicture(home / "levelshots/UPPER.jpg", 0);
    makePicture(home / "levelshots/LOWER.jpg", 100);
}

/// Sees when the picture is painted.
class PaintWatch : public QObject {
public:
    PaintWatch() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint && object->objectName() == QStringLiteral("levelshot")) painted = true;
        return false;
    }
    bool painted = false;
};

/// Milliseconds from the key until the display has the picture.
double choose(QWidget* tree, Qt::Key key) {
    QGuiApplication::sync();  // nothing is left to do from before
    PaintWatch watch;
    const auto start = Clock::now();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(tree, &event);
    }
    while (!watch.painted) {
        if (Clock::now() - start > std::chrono::seconds(10)) throw std::runtime_error("no picture was painted");
        QCoreApplication::processEvents();
    }
    QGuiApplication::sync();  // the display answers when it has done what it was told
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void timePreview() {
    const QTemporaryDir scratch;
    const fs::path home = fs::path(scratch.path().toStdString()) / "home";
    const fs::path game = home.parent_path() / "game";
    makeFolders(home, game);

    fake::UsedWorld world;
    QtFiles files(home.parent_path() / "cache");
    QtPictures pictures;
    const std::string gameFolder = toProgramPath(game.string()) + "\\";
    const std::string programFolder = toProgramPath(home.string());
    world.settings.values["exepath"] = gameFolder + "quake3.exe";
    world.settings.values["basedir"] = gameFolder;
    world.settings.values["ghcdir"] = programFolder + "\\";
    const Services services{files,           world.settings, world.events,    world.clock,   world.dialogs,
                            world.clipboard, world.windows,  world.processes, world.machine, world.archives,
                            pictures,        world.socket,   world.network, world.hostNames, world.viewers,   world.random,  world.resources};
    Gatehouse program(services, programFolder);
    program.StartupDriver();
    MainWindow window(program);
    program.rules.modes.sbar_GroupClick(kListen);
    for (std::int16_t tab = 1; program.rules.modes.TabKey.get() != "maps"; ++tab)
        program.rules.modes.sbar_ListItemClick(tab);
    auto* tree = window.findChild<TableView*>("maptree");
    tree->expandAll();
    tree->setFocus();
    Preview& preview = program.content.preview;
    MapTree& maps = program.content.maps.maptree;
    maps.setCurrent(maps.count() - 1);

    constexpr int kRounds = 50;
    std::printf("first shown   %6.2f ms\n", choose(tree, Qt::Key_Down));
    for (const bool hidden : {true, false}) {
        std::vector<double> times;
        for (int round = 0; round < kRounds; ++round) {
            if (hidden) preview.hide();
            const bool up = round % 2 == 0;
            times.push_back(choose(tree, up ? Qt::Key_Up : Qt::Key_Down));
            if (preview.noPicture.get() || preview.caption.get() != (up ? "Map: UPPER" : "Map: LOWER"))
                throw std::runtime_error("that is not the map's picture");
        }
        std::sort(times.begin(), times.end());
        std::printf("%s %6.2f ms, the median of %d; at most %.2f ms\n", hidden ? "shown again  " : "changed      ",
                    times[kRounds / 2], kRounds, times.back());
    }
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    try {
        timePreview();
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
