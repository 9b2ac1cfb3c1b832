#include "platform/qt/qt_event_loop.h"

#include "base/runtime_failure.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <gtest/gtest.h>

#include <string>

namespace gatehouse {
namespace {

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

TEST_F(EventLoopTest, AWaitSleepsBetweenItsTicks) {
    int looks = 0;
    bool over = false;
    bool done = false;
    soon([&] {
        // Something that can be deleted only when this handler is over must not keep the wait awake.
        QPointer<QObject> waste = new QObject;
        waste->deleteLater();
        soon([&] { over = true; }, 100);
        events.waitUntil([&] { return ++looks > 0 && over; }, 20);
        EXPECT_FALSE(waste.isNull());
        done = true;
    });
    waitFor(done);
    EXPECT_LT(looks, 100);
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

TEST_F(EventLoopTest, ATimerMayGoInItsOwnTick) {
    std::unique_ptr<Timer> timer;
    bool done = false;
    timer = events.createTimer([&done, &timer, text = std::string(100, 'x')] {
        timer.reset();
        EXPECT_EQ(text, std::string(100, 'x')) << "the handler itself is still there";
        done = true;
    });
    timer->setInterval(1);
    timer->setEnabled(true);
    waitFor(done);
}

}  // namespace
}  // namespace gatehouse
