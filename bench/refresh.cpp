// A refresh of the servers whose addresses stand in a file, with the list on show: how long it takes, what it costs, and
// whether the window stays quick and the rows stay where they are. See refresh.sh.

#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/system_datagrams.h"
#include "support/core/started_program.h"
#include "window/tabs/table_tabs.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace gatehouse;
using Steady = std::chrono::steady_clock;

double processorSeconds() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) { return double(t.tv_sec) + double(t.tv_usec) * 1e-6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double secondsSince(Steady::time_point start) { return std::chrono::duration<double>(Steady::now() - start).count(); }

std::vector<std::string> addressesOf(const ServerTable& iplist) {
    std::vector<std::string> all;
    for (const ServerEntry& row : iplist.rows()) all.push_back(row.Address);
    return all;
}

}  // namespace

int main(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication application(argc, argv);
    if (argc < 2) return EXIT_FAILURE;
    std::ifstream file(argv[1]);

    fake::UsedWorld world;
    QtEventLoop events;
    QtClock clock;
    SystemNetwork network(events, clock);
    QtHostNames names(events);
    const Services services{world.files,    world.settings, events,       clock,   world.dialogs, world.clipboard,
                            world.windows,  world.processes, world.machine, world.archives, world.pictures, world.socket,
                            network,        names,          world.viewers, world.random, world.resources};
    Gatehouse program(services, "C:\\gh");
    program.StartupDriver();
    ServersRoom& servers = program.servers;
    servers.iplist.clear();
    for (std::string address; std::getline(file, address);) servers.iplist.append(newServer(address, ""));
    program.startup.options.q3pingwait.setText("1");
    const std::unique_ptr<QWidget> tab(makeServersTab(servers, program.flags));
    tab->resize(900, 600);
    tab->show();
    for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();

    const auto before = addressesOf(servers.iplist);
    double longest = 0;
    auto last = Steady::now();
    QTimer pulse;
    pulse.setTimerType(Qt::PreciseTimer);
    QObject::connect(&pulse, &QTimer::timeout, [&] {
        longest = std::max(longest, secondsSince(std::exchange(last, Steady::now())));
    });
    pulse.start(1);
    const auto start = Steady::now();
    const double processor = processorSeconds();
    last = start;
    servers.desk.refreshAll();
    events.waitUntil([&] { return !servers.refresh.running.get(); }, 0);
    const double wall = secondsSince(start);
    const double used = processorSeconds() - processor;
    std::map<std::string, int> states;
    for (const ServerEntry& row : servers.iplist.rows()) ++states[row.SmallIcon + (row.SilentSince.empty() ? "" : " silent")];
    std::printf("%.2f s wall, %.1f %% of a core, longest pause %.1f ms, rows %s; %s;", wall, used / wall * 100, longest * 1e3,
                before == addressesOf(servers.iplist) ? "unmoved" : "MOVED", servers.refresh.progress.get().c_str());
    for (const auto& [state, count] : states) std::printf(" %s %d", state.c_str(), count);
    std::printf("\n");
    return EXIT_SUCCESS;
}
