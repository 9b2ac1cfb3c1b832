#pragma once

#include "platform/qt/descriptor.h"

#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <string>

namespace gatehouse {

class QtEventLoop;

/// Hears when the program is to end from outside: SIGTERM, SIGHUP and SIGINT, but for those that are ignored already,
/// the end of the desktop's session, and the loss of the display. One at a time; the application must be there before.
class SessionEnd : public QObject {
public:
    /// What is called in the event loop, whatever runs inside of it, with the reason in words.
    struct Handlers {
        std::function<void(const std::string& reason)> end;
        /// The end may be near, and there may be no other call.
        std::function<void(const std::string& reason)> keep;
    };

    SessionEnd(QtEventLoop& events, Handlers handlers);
    ~SessionEnd() override;

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void watchSignals();
    void takeSignal();

    QtEventLoop& events_;
    Handlers handlers_;
    Descriptor readEnd_;
    Descriptor writeEnd_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace gatehouse
