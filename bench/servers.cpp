// The server list with a window's table over it, at a tenth of its size and at its full size; then 10 000 queries in a
// row, and what waiting for a silent server costs.

#include "fake_server.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_udp_socket.h"
#include "support/core/started_program.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/table_view.h"

#include <QApplication>

#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

namespace {

using namespace gatehouse;
using Clock = std::chrono::steady_clock;

constexpr int kFull = 32'767;

template <class Work>
double milliseconds(Work&& work) {
    const auto start = Clock::now();
    work();
    // With what the views have put off.
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

std::string listOf(int rows) {
    std::string text;
    for (int i = 0; i < rows; ++i) {
        const std::string n = std::to_string(i * 7919 % 9973);
        text += "Server " + n + "|P|" + std::to_string(i % 999) + "|" + std::to_string(i % 16) +
                "/16|Free For All|Q3DM" + n + "|10.0." + std::to_string(i / 256) + "." + std::to_string(i % 256) +
                ":27960|\r\n";
    }
    return text;
}

/// The time of each step, in milliseconds.
std::vector<std::pair<const char*, double>> timeList(int rows) {
    fake::UsedWorld world;
    world.files.put("C:\\gh\\many.ghs", listOf(rows));
    Gatehouse program(world.services, "C:\\gh");
    program.StartupDriver();
    const std::unique_ptr<QWidget> tab(
        makeServersTab(program.servers, program.flags));
    tab->resize(900, 600);
    tab->show();
    auto* view = tab->findChild<TableView*>();
    std::string name = "many.ghs";
    std::vector<std::pair<const char*, double>> times;
    const auto add = [&times](const char* step, auto&& work) { times.emplace_back(step, milliseconds(work)); };
    add("load", [&] { program.servers.lists.LoadServerList(name); });
    add("sort by name", [&] { program.servers.commands.iplist_ColumnClick(0); });
    add("sort the other way", [&] { program.servers.commands.iplist_ColumnClick(0); });
    add("select all", [&] { view->selectAll(); });
    add("sort with all selected", [&] { program.servers.commands.iplist_ColumnClick(0); });
    for (const char* typed : {"s", "se", "server 1", "server 12", ""})
        add(*typed ? typed : "filter off", [&] { program.servers.filter.filtertext.setText(typed); });
    add("save", [&] { program.servers.lists.SaveServerList(name); });
    program.servers.iplist.selectWhere([](int position) { return position <= 1000; });
    QCoreApplication::processEvents();
    add("delete 1000", [&] { program.servers.commands.tbservers_ButtonClick("Delete"); });
    view->selectAll();
    add("delete all", [&] { program.servers.commands.tbservers_ButtonClick("Delete"); });
    return times;
}

void timeLists() {
    std::printf("%-24s %12s %12s %8s\n", "ms, rows", std::to_string(kFull / 10).c_str(), std::to_string(kFull).c_str(),
                "times");
    const auto few = timeList(kFull / 10);
    const auto many = timeList(kFull);
    for (std::size_t i = 0; i < few.size(); ++i)
        std::printf("%-24s %12.1f %12.1f %8.1f\n", few[i].first, few[i].second, many[i].second,
                    many[i].second / few[i].second);
}

long residentKiB() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmRSS:")) return std::atol(line.c_str() + 6);
    return 0;
}

long openFiles() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::distance(begin(all), end(all));
}

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Counts log lines and keeps none.
struct QuietLog : Log {
    void logEvent(std::string_view, bool) override {}
    void toFile(std::string_view) override {}
};

void timeQueries() {
    constexpr int kQueries = 10'000;
    fake::World world;
    world.files.addFolder("C:\\gh");
    QuietLog log;
    fake::FakeServer server;
    QtEventLoop events;
    QtUdpSocket socket(events);
    QtClock clock;
    FieldGroup group{"options"};
    TextField q3pingwait{group, {.name = "q3pingwait"}, "3"};
    ModTable mods;
    ServerTable iplist;
    const Ground ground{world.files, world.dialogs, events, log, world.store, world.run, world.flags, world.pace};
    ServerNumbers numbers(iplist);
    StatusQuery query{{ground, socket, clock, iplist, numbers, mods, q3pingwait}};
    iplist.append(newServer(server.address(), ""));
    iplist.select(1);
    const std::string reply = fake::statusReply(
        "\\sv_hostname\\A Server\\mapname\\q3dm6\\sv_maxclients\\8\\g_gametype\\9\\z\\", {"3 40 \"One\""});
    server.onRequest = [&] { server.answer(reply); };

    query.QuerySelectedServers();
    const long files = openFiles();
    const long memory = residentKiB();
    const double time = milliseconds([&] {
        for (int i = 0; i < kQueries; ++i) {
            query.restoreDesign();  // forgets when it asked: the pause between two requests is not to be timed
            query.QuerySelectedServers();
        }
    });
    std::printf("\n%d queries: %.0f a second, %d answered, memory %+ld KiB, open files %+ld\n", kQueries,
                kQueries / time * 1e3, server.requests - 1, residentKiB() - memory, openFiles() - files);

    server.onRequest = {};
    query.restoreDesign();
    const double before = processorSeconds();
    const double wait = milliseconds([&] { query.QuerySelectedServers(); });
    std::printf("a silent server: %.0f ms waited, processor time %.2f %% of it\n", wait,
                (processorSeconds() - before) * 1e5 / wait);
}

}  // namespace

int main(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication application(argc, argv);
    timeLists();
    timeQueries();
    return 0;
}
