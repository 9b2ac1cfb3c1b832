#include "map_scan.h"

#include "content/content_room.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_files.h"
#include "platform/qt/zip_archives.h"
#include "support/core/fakes.h"

#include <QGuiApplication>

#include <cstdlib>

namespace gatehouse {

namespace {

/// No to every question.
class Refusal : public fake::ScriptedDialogs {
public:
    Answer show(const MessageBox&) override { return Answer::No; }
};

}  // namespace

std::string scanMaps(const SampleGame& sample) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int noArguments = 0;
    const QGuiApplication application(noArguments, nullptr);
    fake::World world;
    sample.enter(world.run);
    QtFiles files(sample.root / "cache");
    QtEventLoop events;
    QtClock clock;
    ZipArchives archives;
    Refusal dialogs;
    Pace pace(events, clock);
    const Ground ground{files, dialogs, events, world.log, world.store, world.run, world.flags, pace};
    const Services services{files,           world.settings, events,          clock,         dialogs,
                            world.clipboard, world.windows,  world.processes, world.machine, archives,
                            world.pictures,  world.socket,   world.network, world.hostNames, world.viewers,   world.random,  world.resources};
    SettingsDocument doc;
    Observable<std::string> status;
    ContentRoom content(ground, services, doc, status);
    return content.mapScan.run() ? world.log.lines.back() : "";
}

}  // namespace gatehouse
