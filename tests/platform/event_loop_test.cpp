#include "platform/qt/qt_event_loop.h"

#include "base/runtime_failure.h"

#include <QCoreApplication>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <string>

namespace gatehouse {
namespace {

double processorMilliseconds() {
    rusage used{};
    ::getrusage(RUSAGE_SELF, &used);
    const auto milliseconds = [](const timeval& time) { return time.tv_sec * 1000 + time.tv_usec / 1000; };
    return static_cast<double>(milliseconds(used.ru_utime) + milliseconds(used.ru_stime));
}

class EventLoopTest : public ::testing::Test {
protected:
    /// Runs something once as a handler of the toolkit.
    void soon(std::function<void()> handler, int milliseconds = 0) {
        QTimer::singleShot(milliseconds, &receiver, [this, handler = std::move(handler)] { events.guarded(handler); });
    }
    void waitFor(const bool& flag) {
        events.waitUntil([&flag] { return flag; }, 0);
    }

    QtEventLoop events;
    QObject receiver;
};

TEST_F(EventLoopTest, YieldDispatchesWhatIsPendingAndReturns) {
    events.yield();
    std::string order;
    soon([&] {
        order += "a";
        soon([&] { order += "b"; });
    });
    soon([&] { order += "never"; }, 60'000);
    events.yield();
    EXPECT_EQ(order, "ab");
}

TEST_F(EventLoopTest, AWaitCostsNoProcessorTime) {
    const auto start = std::chrono::steady_clock::now();
    const auto over = [start] { return std::chrono::steady_clock::now() - start > std::chrono::milliseconds(400); };
    double used = 0;
    bool done = false;
    soon([&] {
        // Something that can be deleted only when this handler is over must not keep the wait awake either.
        QPointer<QObject> waste = new QObject;
        waste->deleteLater();
        const double before = processorMilliseconds();
        events.waitUntil(over, 20);
        used = processorMilliseconds() - before;
        EXPECT_FALSE(waste.isNull());
        done = true;
    });
    waitFor(done);
    EXPECT_LT(used, 150);
}

TEST_F(EventLoopTest, AConditionThatIsNoEventIsLookedAtEachTick) {
    int looks = 0;
    events.waitUntil([&] { return ++looks == 5; }, 5);
    EXPECT_EQ(looks, 5);
}

TEST_F(EventLoopTest, NestedWaitsEndFromTheInside) {
    std::string order;
    bool inner = false;
    bool outer = false;
    soon([&] {
        order += "[";
        soon([&] { outer = true; });
        soon([&] { inner = true; }, 20);
        waitFor(inner);
        order += "]";
    });
    waitFor(outer);
    order += ".";
    EXPECT_EQ(order, "[].");
}

TEST_F(EventLoopTest, DeletesLaterButNeverInTheMidstOfAHandler) {
    QPointer<QObject> byNested = new QObject;
    bool done = false;
    soon([&] {
        QPointer<QObject> own = new QObject;
        own->deleteLater();
        soon([&] { byNested->deleteLater(); });
        events.yield();
        EXPECT_TRUE(byNested.isNull());
        EXPECT_FALSE(own.isNull());
        done = true;
    });
    waitFor(done);
}

TEST_F(EventLoopTest, AFailureOfAHandlerComesOutOfTheInnermostWait) {
    const auto timer = events.createTimer([] { throw RuntimeFailure("tick"); });
    timer->setInterval(1);
    std::string caught;
    bool done = false;
    soon([&] {
        timer->setEnabled(true);
        try {
            events.waitUntil([] { return false; }, 0);
        } catch (const RuntimeFailure& failure) {
            timer->setEnabled(false);
            caught = failure.what();
        }
        done = true;
    });
    EXPECT_NO_THROW(waitFor(done));
    EXPECT_EQ(caught, "tick");

    soon([] { throw RuntimeFailure("first"); });
    soon([] { throw RuntimeFailure("second"); });
    EXPECT_THROW(
        {
            events.yield();
            events.yield();
        },
        RuntimeFailure);
    while (true) {
        try {
            events.yield();
            break;
        } catch (const RuntimeFailure&) {
        }
    }
}

TEST_F(EventLoopTest, AFailureOutsideOfWaitsComesOutOfRun) {
    soon([] { throw RuntimeFailure("in the program"); });
    try {
        events.run();
        ADD_FAILURE() << "no failure";
    } catch (const RuntimeFailure& failure) {
        EXPECT_STREQ(failure.what(), "in the program");
    }
    // The loop can be entered again, for a last box.
    bool shown = false;
    soon([&] { shown = true; });
    waitFor(shown);
}

TEST_F(EventLoopTest, TheProgramGoesOnWhenSomebodyCanLiveWithTheFailure) {
    soon([&] {
        // Kept while no wait runs, and then taken by the next one.
        events.guarded([] { throw RuntimeFailure("kept"); });
        EXPECT_THROW(events.yield(), RuntimeFailure);
        soon([&] { events.endWaits(); }, 10);
    });
    EXPECT_EQ(events.run(), 0);
    EXPECT_TRUE(events.ended());
}

TEST_F(EventLoopTest, AfterTheEndNothingWaits) {
    bool unwound = false;
    soon([&] {
        soon([&] { events.endWaits(); });
        try {
            events.waitUntil([] { return false; }, 0);
        } catch (const Shutdown&) {
            unwound = true;
            throw;
        }
    });
    EXPECT_EQ(events.run(), 0);
    EXPECT_TRUE(unwound);
    EXPECT_THROW(events.yield(), Shutdown);
    EXPECT_THROW(events.waitUntil([] { return true; }, 1), Shutdown);
    EXPECT_EQ(events.run(), 0);
}

TEST_F(EventLoopTest, TimersFireWhileEnabledAndWithAnInterval) {
    int ticks = 0;
    const auto timer = events.createTimer([&] { ++ticks; });
    const auto pause = [&](int milliseconds) {
        bool over = false;
        soon([&] { over = true; }, milliseconds);
        waitFor(over);
    };
    timer->setInterval(2);
    pause(20);
    EXPECT_EQ(ticks, 0) << "off at first";
    timer->setEnabled(true);
    events.waitUntil([&] { return ticks >= 3; }, 0);
    timer->setInterval(0);
    const int before = ticks;
    pause(20);
    EXPECT_EQ(ticks, before) << "an interval of 0 never fires";
    EXPECT_TRUE(timer->enabled());
    timer->setInterval(2);
    events.waitUntil([&] { return ticks > before; }, 0);
}

TEST_F(EventLoopTest, ATimerMayGoInItsOwnTick) {
    std::unique_ptr<Timer> timer;
    std::string text = "a text long enough to lie on the heap, so that its loss shows";
    bool done = false;
    timer = events.createTimer([&, text] {
        timer.reset();
        EXPECT_EQ(text.size(), 61U);
        done = true;
    });
    timer->setInterval(1);
    timer->setEnabled(true);
    waitFor(done);
}

}  // namespace
}  // namespace gatehouse
