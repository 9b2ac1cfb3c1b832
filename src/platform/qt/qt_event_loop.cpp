#include "platform/qt/qt_event_loop.h"

#include <QAbstractEventDispatcher>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

#include <utility>

namespace gatehouse {

namespace {

/// Passes of one yield at most: a timer without an interval always has something pending.
constexpr int kMostPasses = 16;

class QtTimer : public Timer {
public:
    QtTimer(QtEventLoop& events, std::function<void()> onTick) {
        timer_.setTimerType(Qt::PreciseTimer);
        // The handler belongs to the connection, which outlives a timer that is deleted by its own handler.
        QObject::connect(&timer_, &QTimer::timeout, &timer_,
                         [&events, handler = std::move(onTick)] { events.guarded(handler); });
    }

    void setInterval(int milliseconds) override {
        interval_ = milliseconds;
        apply();
    }
    void setEnabled(bool enabled) override {
        if (enabled == enabled_) return;
        enabled_ = enabled;
        apply();
    }
    bool enabled() const override { return enabled_; }

private:
    void apply() {
        if (enabled_ && interval_ > 0)
            timer_.start(interval_);
        else
            timer_.stop();
    }

    QTimer timer_;
    int interval_ = 0;
    bool enabled_ = false;
};

/// Closes modal windows until `last` is the front one.
void closeModalWindows(const QWindow* last) {
    while (QWindow* window = QGuiApplication::modalWindow()) {
        if (window == last) return;
        window->setProperty(QtEventLoop::kMustClose, true);
        window->close();
        // One that doesn't want to close must not hold up the failure.
        if (window == QGuiApplication::modalWindow()) window->hide();
        if (window == QGuiApplication::modalWindow()) return;
    }
}

}  // namespace

/// One of our own waits on the stack.
class QtEventLoop::Wait {
public:
    explicit Wait(QtEventLoop& events) : events_(events), outer_(std::exchange(events.innermost_, this)) {}
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;
    ~Wait() { events_.innermost_ = outer_; }

    const QWindow* modalBefore() const { return modalBefore_; }

private:
    QtEventLoop& events_;
    Wait* outer_;
    const QWindow* modalBefore_ = QGuiApplication::modalWindow();
};

void QtEventLoop::yield() {
    throwKept();
    const Wait wait(*this);
    QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
    for (int pass = 0; pass < kMostPasses; ++pass) {
        const bool any = dispatcher->processEvents(QEventLoop::AllEvents);
        throwKept();
        if (!any) return;
    }
}

void QtEventLoop::waitUntil(const std::function<bool()>& condition, int tickMilliseconds) {
    QTimer tick;
    if (tickMilliseconds > 0) tick.start(tickMilliseconds);
    const Wait wait(*this);
    for (;;) {
        throwKept();
        if (condition()) return;
        QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
}

void QtEventLoop::endWaits() {
    ended_ = true;
    // Unlike `quit`, this asks no window whether it wants to close.
    QCoreApplication::exit(0);
}

std::unique_ptr<Timer> QtEventLoop::createTimer(std::function<void()> onTick) {
    return std::make_unique<QtTimer>(*this, std::move(onTick));
}

int QtEventLoop::run() {
    QGuiApplication::setQuitOnLastWindowClosed(false);
    int code = 0;
    do {
        if (kept_) std::rethrow_exception(std::exchange(kept_, nullptr));
        if (ended_) return 0;
        leftForFailure_ = false;
        running_ = true;
        code = QCoreApplication::exec();
        running_ = false;
        // When a wait has handed the failure to somebody who can live with it, the program goes on.
    } while (kept_ || leftForFailure_);
    return code;
}

void QtEventLoop::keepFailure(std::exception_ptr failure) noexcept {
    // The first failure is the cause of those that follow.
    if (kept_) return;
    kept_ = std::move(failure);
    guarded([this] { closeModalWindows(innermost_ ? innermost_->modalBefore() : nullptr); });
    if (innermost_ || !running_) return;
    leftForFailure_ = true;
    QCoreApplication::exit(1);
}

void QtEventLoop::throwKept() {
    if (kept_) std::rethrow_exception(std::exchange(kept_, nullptr));
    if (ended_) throw Shutdown{};
}

}  // namespace gatehouse
