#include "platform/x11/x11_windows.h"

#include "platform/qt/child_programs.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <string>
#include <thread>

namespace gatehouse {
namespace {

/// Without an X server: the list is that of the games.
class DesktopWindowsTest : public ::testing::Test {
protected:
    DesktopWindowsTest() {
        if (const char* display = std::getenv("DISPLAY")) display_ = display;
        ::unsetenv("DISPLAY");
    }
    ~DesktopWindowsTest() override {
        if (!display_.empty()) ::setenv("DISPLAY", display_.c_str(), 1);
        for (const pid_t game : games.alive()) ::kill(-game, SIGKILL);
    }
    std::uint64_t startGame(const std::string& script) {
        games.start("/bin/sh", {"sh", "-c", script}, "/");
        return static_cast<std::uint64_t>(games.alive().back());
    }
    bool ends() {
        for (int i = 0; i < 500 && !games.alive().empty(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return games.alive().empty();
    }

    ChildPrograms games;

private:
    std::string display_;
};

TEST_F(DesktopWindowsTest, GamesStandForTheirWindows) {
    X11Windows windows([this] { return games.alive(); });
    EXPECT_TRUE(windows.list().empty());

    const std::uint64_t game = startGame("sleep 600 & wait");
    ASSERT_EQ(windows.list().size(), 1U);
    EXPECT_EQ(windows.list().front().id, game);
    EXPECT_EQ(windows.list().front().title, "Quake 3: Arena");
    EXPECT_TRUE(windows.list().front().startedGame);

    windows.close(game);
    EXPECT_TRUE(ends());
    EXPECT_TRUE(windows.list().empty());
}

TEST_F(DesktopWindowsTest, OnlyAGameThatWeStartedCanBeEnded) {
    X11Windows windows([this] { return games.alive(); });
    const std::uint64_t deaf = startGame("trap '' TERM; while :; do sleep 1; done");
    for (const std::uint64_t other : {std::uint64_t{0}, std::uint64_t{1}, static_cast<std::uint64_t>(::getpid())})
        EXPECT_FALSE(windows.terminate(other)) << other;
    EXPECT_TRUE(windows.terminate(deaf));
    EXPECT_TRUE(ends());
    EXPECT_FALSE(windows.terminate(deaf));
}

}  // namespace
}  // namespace gatehouse
