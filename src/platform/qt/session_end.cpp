#include "platform/qt/session_end.h"

#include "platform/qt/qt_event_loop.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

namespace gatehouse {

namespace {

struct EndSignal {
    int number;
    const char* name;
};
constexpr std::array<EndSignal, 3> kSignals = {{{SIGTERM, "SIGTERM"}, {SIGHUP, "SIGHUP"}, {SIGINT, "SIGINT"}}};

constexpr const char* kSessionEnded = "the desktop's session ended";

/// Where the handler leaves the number of a signal. A handler may do next to nothing: it writes one byte.
std::atomic<int> signalPipe{-1};
static_assert(std::atomic<int>::is_always_lock_free);

void leaveSignal(int number) {
    const int before = errno;
    const auto byte = static_cast<unsigned char>(number);
    [[maybe_unused]] const ssize_t written = ::write(signalPipe.load(), &byte, 1);
    errno = before;
}

void setHandler(int number, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(number, &action, nullptr);
}

/// A program that was told from outside to live through a signal does.
bool isIgnored(int number) {
    struct sigaction action {};
    return ::sigaction(number, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

/// Called by the toolkit's own `exit`, which is how it takes the loss of its display: from inside its event loop, with
/// all of the program still standing.
std::function<void()> atExit;

}  // namespace

SessionEnd::SessionEnd(QtEventLoop& events, Handlers handlers) : events_(events), handlers_(std::move(handlers)) {
    watchSignals();
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager&) { events_.guarded([this] { handlers_.keep(kSessionEnded); }); }, Qt::DirectConnection);
    qGuiApp->installEventFilter(this);
    [[maybe_unused]] static const int registered = std::atexit([] {
        if (atExit) atExit();
    });
    atExit = [this] { events_.guarded([this] { handlers_.keep("the display was lost"); }); };
}

SessionEnd::~SessionEnd() {
    atExit = nullptr;
    if (!notifier_) return;
    for (const EndSignal& one : kSignals)
        if (!isIgnored(one.number)) setHandler(one.number, SIG_DFL);
    signalPipe = -1;
}

bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Quit || watched != qGuiApp) return false;
    // The toolkit would close the windows one by one, and they would ask.
    events_.guarded([this] { handlers_.end(kSessionEnded); });
    return true;
}

void SessionEnd::watchSignals() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;  // then they end the program as they always did
    readEnd_ = Descriptor(ends[0]);
    writeEnd_ = Descriptor(ends[1]);
    notifier_ = std::make_unique<QSocketNotifier>(readEnd_.get(), QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this] { events_.guarded([this] { takeSignal(); }); });
    signalPipe = writeEnd_.get();
    for (const EndSignal& one : kSignals)
        if (!isIgnored(one.number)) setHandler(one.number, leaveSignal);
}

void SessionEnd::takeSignal() {
    unsigned char byte = 0;
    if (::read(readEnd_.get(), &byte, 1) != 1) return;
    for (const EndSignal& one : kSignals)
        if (one.number == byte) handlers_.end(std::string("stopped by ") + one.name);
}

}  // namespace gatehouse
