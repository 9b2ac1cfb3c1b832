#include "startup/event_log.h"

#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

class EventLogTest : public testing::Test {
protected:
    EventLogTest() {
        run.AppDir = "C:\\gh\\";
        world.files.addFolder("C:\\gh");
    }
    std::string linesAfterHeader() const {
        const std::string text = world.files.content("C:\\gh\\20010203140506-errorlog.txt");
        return text.substr(text.find("\r\n\r\n") + 4);
    }

    fake::World world;
    RunState run;
    OptionsForm options;
    SplashView splash;
    MainView q3;
    EventLog log{world.files, world.events, world.clock, run, options, splash, q3};
};

TEST_F(EventLogTest, TheLevelDecidesWhichLinesReachTheFile) {
    const struct {
        int level;
        std::string lines;
    } cases[] = {{-1, ""}, {0, ""}, {1, "grave\r\n"}, {2, "li ght\r\ngrave\r\n"}};
    for (const auto& one : cases) {
        options.q3loglevel.setIndex(one.level);
        run.LogOpen = false;
        ASSERT_TRUE(log.purgeAndCreate("5"));
        log.logEvent("li\nght");
        log.logEvent("grave", true);
        EXPECT_EQ(linesAfterHeader(), one.lines) << one.level;
    }
}

TEST_F(EventLogTest, WithTheConsoleOnLinesCarryTheTimeSinceTheLineBefore) {
    run.ShowConsole.set(true);
    options.q3loglevel.setIndex(2);
    ASSERT_TRUE(log.purgeAndCreate("5"));
    world.clock.ticks += 1250;
    std::string message = "File Opened OK";
    log.logMessage(message, false);
    EXPECT_EQ(message, "001.25: file opened ok");
    EXPECT_EQ(linesAfterHeader(), "001.25: file opened ok\r\n");
    EXPECT_EQ(q3.q3status.get(), message);
    world.events.advance(1299);
    EXPECT_EQ(q3.q3status.get(), message);
    world.events.advance(1);
    EXPECT_EQ(q3.q3status.get(), "Ready");
}

TEST_F(EventLogTest, ThePurgeKeepsTheNewestLogsAndPassesOverThoseThatResist) {
    for (const char* stamp : {"19990101000000", "20000101000000", "20000102000000", "20010101000000"})
        world.files.put("C:\\gh\\" + std::string(stamp) + "-ERRORLOG.txt", "old");
    world.files.put("C:\\gh\\notes.txt", "mine");
    world.files.denied.insert("c:\\gh\\20000101000000-errorlog.txt");
    ASSERT_TRUE(log.purgeAndCreate("1"));
    EXPECT_EQ(world.files.paths(),
              (std::vector<std::string>{"C:\\gh\\20000101000000-ERRORLOG.txt", "C:\\gh\\20010101000000-ERRORLOG.txt",
                                        "C:\\gh\\20010203140506-errorlog.txt", "C:\\gh\\notes.txt"}));
    EXPECT_NE(q3.q3console.get().find("problem deleting 20000101000000-ERRORLOG.txt"), std::string::npos);
}

}  // namespace
}  // namespace gatehouse
