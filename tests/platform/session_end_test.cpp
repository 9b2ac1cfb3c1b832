#include "platform/qt/session_end.h"

#include "platform/qt/qt_event_loop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>

#include <csignal>
#include <optional>
#include <string>

namespace gatehouse {
namespace {

TEST(SessionEndTest, HearsSignalsInAWaitAndTheSessionsEndButNotWhatIsIgnored) {
    QtEventLoop events;
    std::string heard;
    std::signal(SIGHUP, SIG_IGN);
    std::optional<SessionEnd> sessionEnd(
        std::in_place, events,
        SessionEnd::Handlers{.end = [&heard](const std::string& reason) { heard += reason + "; "; }, .keep = {}});
    std::raise(SIGHUP);
    std::raise(SIGTERM);
    std::raise(SIGINT);
    events.waitUntil([&heard] { return heard.find("SIGINT") != std::string::npos; }, 0);
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &quit);
    EXPECT_EQ(heard, "stopped by SIGTERM; stopped by SIGINT; the desktop's session ended; ");

    sessionEnd.reset();
    struct sigaction after {};
    for (const auto& [number, handler] : {std::pair(SIGHUP, SIG_IGN), {SIGTERM, SIG_DFL}}) {
        ::sigaction(number, nullptr, &after);
        EXPECT_EQ(after.sa_handler, handler) << number;
    }
    std::signal(SIGHUP, SIG_DFL);
}

}  // namespace
}  // namespace gatehouse
