// Times the switch from one tab to the next, in a window drawn into memory: the first showing, which makes the tab, and
// every other.

#include "support/core/started_program.h"
#include "window/main_window.h"

#include <QApplication>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

using Clock = std::chrono::steady_clock;

/// Milliseconds until the tab is painted.
double show(gatehouse::Gatehouse& program, std::int16_t item) {
    const auto start = Clock::now();
    program.rules.modes.sbar_ListItemClick(item);
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

}  // namespace

int main(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication application(argc, argv);
    gatehouse::fake::UsedWorld world;
    gatehouse::Gatehouse program(world.services, "C:\\gh");
    program.StartupDriver();
    gatehouse::MainWindow window(program);
    program.rules.modes.sbar_GroupClick(gatehouse::kListen);
    QCoreApplication::processEvents();

    constexpr int kRounds = 50;
    const auto& tabs = gatehouse::modes()[gatehouse::kListen - 1].tabs;
    std::printf("%-12s %12s %12s\n", "ms until", "first shown", "shown again");
    for (std::size_t i = 1; i < tabs.size(); ++i) {
        const auto item = static_cast<std::int16_t>(i + 1);
        show(program, 1);
        const double first = show(program, item);
        double again = 0;
        for (int round = 0; round < kRounds; ++round) {
            show(program, 1);
            again += show(program, item);
        }
        std::printf("%-12s %12.2f %12.2f\n", std::string(gatehouse::tabInfo(tabs[i]).caption).c_str(), first,
                    again / kRounds);
    }
    return 0;
}
