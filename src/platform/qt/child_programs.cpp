#include "platform/qt/child_programs.h"

#include "base/runtime_failure.h"
#include "platform/qt/descriptor.h"

#include <QCoreApplication>
#include <QFile>
#include <QSocketNotifier>
#include <QStandardPaths>

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>

namespace gatehouse {

namespace {

constexpr int kFailedChild = 127;

[[noreturn]] void failSystem(int error) { throw RuntimeFailure(std::generic_category().message(error)); }

/// The system's own words for these two mislead: the file is there.
[[noreturn]] void failProgram(int error) {
    if (error == ENOENT) throw RuntimeFailure("the interpreter that it names was not found");
    if (error == ENOEXEC) throw RuntimeFailure("it is not a program for this system");
    failSystem(error);
}

/// The child's part: nothing in here may allocate or lock, as other threads of the parent are gone.
[[noreturn]] void becomeProgram(const char* program, char* const* arguments, const char* folder, int nullDevice,
                                int report) {
    ::setsid();
    // The toolkit ignores broken pipes; the program is to find the signals as they were made.
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    ::sigaction(SIGPIPE, &standard, nullptr);
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);

    // Its console is not ours: whoever reads our output to its end would wait for the game.
    const bool quiet = ::dup2(nullDevice, STDIN_FILENO) >= 0 && ::dup2(nullDevice, STDOUT_FILENO) >= 0 &&
                       ::dup2(nullDevice, STDERR_FILENO) >= 0;
    if (quiet && ::chdir(folder) == 0) {
        // Whatever a library has left open stays here.
        ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
        ::execve(program, arguments, environ);
    }
    const int error = errno;
    [[maybe_unused]] const ssize_t told = ::write(report, &error, sizeof error);
    ::_exit(kFailedChild);
}

/// What the child reports: 0 when the pipe closes because the program runs.
int readReport(int pipe) {
    int error = 0;
    ssize_t count = 0;
    do {
        count = ::read(pipe, &error, sizeof error);
    } while (count < 0 && errno == EINTR);
    return count == sizeof error ? error : 0;
}

void waitForEnd(pid_t pid) {
    while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
    }
}

bool hasEnded(pid_t pid) {
    const pid_t result = ::waitpid(pid, nullptr, WNOHANG);
    return result == pid || (result < 0 && errno == ECHILD);
}

}  // namespace

void ChildPrograms::start(const std::string& program, const std::vector<std::string>& arguments,
                          const std::string& folder) {
    std::vector<std::string> words = arguments;
    std::vector<char*> list;
    list.reserve(words.size() + 1);
    for (std::string& word : words) list.push_back(word.data());
    list.push_back(nullptr);

    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) failSystem(errno);
    const Descriptor reading(ends[0]);
    Descriptor writing(ends[1]);
    const Descriptor nullDevice(::open("/dev/null", O_RDWR | O_CLOEXEC));
    if (!nullDevice) failSystem(errno);

    pids_ = alive();
    const pid_t pid = ::fork();
    if (pid < 0) failSystem(errno);
    if (pid == 0) becomeProgram(program.c_str(), list.data(), folder.c_str(), nullDevice.get(), writing.get());

    writing = Descriptor();
    if (const int error = readReport(reading.get()); error != 0) {
        waitForEnd(pid);
        failProgram(error);
    }
    pids_.push_back(pid);
    reapAtEnd(pid);
}

void ChildPrograms::reapAtEnd(pid_t pid) {
    if (!QCoreApplication::instance()) return;  // nothing would wake up
    const int watched = static_cast<int>(::syscall(SYS_pidfd_open, pid, 0));
    if (watched < 0) return;
    auto* end = new QSocketNotifier(watched, QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(end, &QSocketNotifier::activated, end, [end, pid, watched] {
        end->setEnabled(false);
        static_cast<void>(hasEnded(pid));
        ::close(watched);
        end->deleteLater();
    });
}

std::vector<pid_t> ChildPrograms::alive() const {
    std::erase_if(pids_, hasEnded);
    return pids_;
}

std::string findOnSearchPath(const std::string& name) {
    return QFile::encodeName(QStandardPaths::findExecutable(QString::fromStdString(name))).toStdString();
}

}  // namespace gatehouse
