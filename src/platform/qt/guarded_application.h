#pragma once

#include "platform/qt/qt_event_loop.h"

#include <QCoreApplication>

class QEvent;
class QObject;

namespace gatehouse {

/// The toolkit's application (`Base` is `QGuiApplication` or `QApplication`), with a net under every handler: what one
/// throws is kept by the event loop, which must outlive the application. It is a net only: the toolkit's own frames are
/// passed without cleaning up, so a handler that is likely to fail goes through `QtEventLoop::guarded` itself.
template <class Base>
class GuardedApplication : public Base {
public:
    GuardedApplication(QtEventLoop& events, int& argc, char** argv) : Base(argc, argv), events_(events) {}

    bool notify(QObject* receiver, QEvent* event) override {
        bool taken = false;
        events_.guarded([&] { taken = Base::notify(receiver, event); });
        return taken;
    }

    QtEventLoop& events() { return events_; }

private:
    QtEventLoop& events_;
};

/// Runs a handler that the toolkit called, and lets nothing that it throws into the toolkit's own frames.
template <class Base, class Handler>
void runGuarded(Handler&& handler) {
    if (auto* application = dynamic_cast<GuardedApplication<Base>*>(QCoreApplication::instance()))
        application->events().guarded(handler);
    else
        handler();
}

}  // namespace gatehouse
