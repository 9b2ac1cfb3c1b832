#include "platform/qt/guarded_application.h"

#include "base/runtime_failure.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QTimer>

#include <gtest/gtest.h>

#include <string>

namespace gatehouse {
namespace {

/// What is thrown here leaves the toolkit's handlers unguarded and must be caught by the application.
class GuardedApplicationTest : public ::testing::Test {
protected:
    std::string failureOfWait() {
        try {
            events.waitUntil([] { return false; }, 0);
        } catch (const RuntimeFailure& failure) {
            return failure.what();
        }
        return "no failure";
    }

    QtEventLoop& events = static_cast<GuardedApplication<QApplication>*>(qApp)->events();
    QObject receiver;
};

TEST_F(GuardedApplicationTest, KeepsWhatATimerAndAnEventHandlerThrow) {
    QTimer::singleShot(0, &receiver, [] { throw RuntimeFailure("timer"); });
    EXPECT_EQ(failureOfWait(), "timer");
    QTimer::singleShot(0, &receiver, [] { throw 42; });
    EXPECT_THROW(events.waitUntil([] { return false; }, 0), int);
    EXPECT_NO_THROW(events.yield());
    struct Thrower : QObject {
        bool event(QEvent* event) override {
            if (event->type() == QEvent::User) throw RuntimeFailure("event");
            return QObject::event(event);
        }
    };
    Thrower thrower;
    QApplication::postEvent(&thrower, new QEvent(QEvent::User));
    EXPECT_EQ(failureOfWait(), "event");
}

TEST_F(GuardedApplicationTest, AFailureInsideADialogEndsItAndNotTheOneThatWaitsOutside) {
    QDialog outer;
    outer.setModal(true);
    outer.show();
    std::string order;
    QTimer::singleShot(0, &receiver, [&] {
        QDialog inner;
        QTimer::singleShot(0, &inner, [] { throw RuntimeFailure("inside"); });
        EXPECT_EQ(inner.exec(), QDialog::Rejected);
        order += "closed ";
    });
    order += failureOfWait();
    EXPECT_EQ(order, "closed inside");
    EXPECT_TRUE(outer.isVisible());
}

TEST_F(GuardedApplicationTest, AFailureInADialogOfTheProgramComesOutOfRun) {
    QTimer::singleShot(0, &receiver, [&] {
        QDialog dialog;
        QTimer::singleShot(0, &dialog, [] { throw RuntimeFailure("in a dialog"); });
        dialog.exec();
    });
    EXPECT_THROW(events.run(), RuntimeFailure);
}

}  // namespace
}  // namespace gatehouse
