// From the command to the window of results on the screen, over a record of 10 000 iterations, and then from a key to
// the next dot. Times are milliseconds.

#include "platform/qt/qt_event_loop.h"
#include "startup/gatehouse.h"
#include "support/core/started_program.h"
#include "window/main_window.h"
#include "window/widgets/chart_view.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>

#include <cstdio>

namespace {

using namespace gatehouse;

constexpr int kConfigurations = 10;
constexpr int kDemos = 10;
constexpr int kIterations = 100;
constexpr int kKeys = 100;

std::string record() {
    RunRecord run;
    run.started = "2001-02-03 14:05:06";
    run.wanted = kIterations;
    for (int i = 0; i < kConfigurations; ++i) {
        std::string text;
        for (int line = 0; line < 60; ++line)
            text += "r_setting" + std::to_string(line) + "  \"" + std::to_string(i) + "\"\r\n";
        run.configurations.push_back({"document" + std::to_string(i) + ".ghc", text});
    }
    for (int i = 0; i < kDemos; ++i) run.demos.push_back("demo00" + std::to_string(i));
    for (int i = 0; i < kConfigurations * kDemos * kIterations; ++i) {
        Iteration one;
        one.configuration = i / (kDemos * kIterations);
        one.demo = i / kIterations % kDemos;
        one.number = i % kIterations + 1;
        one.value = 50 + one.configuration + i * 7919 % 1000 / 100.0;
        one.at = run.started;
        run.iterations.push_back(one);
    }
    return recordText(run);
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    fake::UsedWorld world;
    world.files.put("C:\\gh\\benchmarks\\20010203140506.json", record());
    Gatehouse program(world.services, "C:\\gh");
    program.StartupDriver();
    MainWindow window(program);
    QApplication::processEvents();

    QElapsedTimer clock;
    clock.start();
    program.mtoolsresults_Click();
    QApplication::processEvents();
    const double opened = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    auto* chart = window.findChild<ChartView*>("chart");
    if (!chart || chart->dotCount() != kConfigurations * kDemos * kIterations) return std::puts("no chart"), 1;
    chart->grab();
    const double painted = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    clock.restart();
    for (int i = 0; i < kKeys; ++i) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
        QApplication::sendEvent(chart, &key);
        QApplication::processEvents();
    }
    std::printf("open %.1f, with another painting %.1f, next dot %.2f\n", opened, painted,
                static_cast<double>(clock.nsecsElapsed()) / 1e6 / kKeys);
    return 0;
}
