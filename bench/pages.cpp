// From one help page to the next in the real window, and a search in all of them.

#include "support/core/started_program.h"
#include "window/main_window.h"

#include <QApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

using namespace gatehouse;

namespace {

constexpr int kRounds = 20;

template <class Work>
double milliseconds(Work work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

void report(const char* what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    std::printf("%-24s median %6.2f ms, longest %6.2f ms\n", what, times[times.size() / 2], times.back());
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    fake::UsedWorld world;
    Gatehouse program(world.services, "C:\\gh");
    program.StartupDriver();
    MainWindow window(program);
    window.show();
    program.mhelpover_Click();
    QCoreApplication::processEvents();
    std::vector<double> pages;
    for (int round = 0; round < kRounds; ++round)
        for (int page = 0; page < static_cast<int>(kHelpPages.size()); ++page)
            pages.push_back(milliseconds([&] {
                program.rules.hwin.navigate({page});
                QCoreApplication::processEvents();
                window.grab();
            }));
    report("a page", pages);
    HelpRules& help = program.rules.help;
    std::printf("%-24s %6.2f ms\n", "the first search", milliseconds([&] { help.book.search("pure server"); }));
    std::vector<double> searches;
    for (int round = 0; round < kRounds; ++round)
        searches.push_back(milliseconds([&] { help.book.search("pure server"); }));
    report("a search", searches);
}
