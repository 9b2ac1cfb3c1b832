#include "platform/qt/qt_processes.h"

#include "base/runtime_failure.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <thread>

namespace gatehouse {
namespace {

using testing::ScratchFolder;

/// Writes its folder, its session, its input's length, a variable and its arguments, each ended by NUL.
constexpr const char* kRecorder = R"sh(#!/bin/sh
{ printf '%s\0' "$PWD" "$(wc -c)" "$GATEHOUSE_TEST_VARIABLE" "$@"; } > seen.tmp
mv seen.tmp "$(dirname "$0")/seen"
)sh";

bool comesTrue(const std::function<bool()>& condition) {
    for (int i = 0; i < 500 && !condition(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return condition();
}

class ProcessesTest : public ::testing::Test {
protected:
    ProcessesTest() { ::setenv("GATEHOUSE_TEST_VARIABLE", "as it is", 1); }

    void putProgram(const std::string& name, const std::string& content, int mode = 0755) {
        scratch.put(name, content);
        ::chmod(scratch.native(name).c_str(), static_cast<mode_t>(mode));
    }
    void putBatch(const std::string& programLine) {
        const std::string path = scratch.path("Quake III Arena");
        scratch.put("go.bat",
                    "@echo off\r\nREM x\r\nC:\r\ncd \"" + path.substr(2) + "\"\r\n" + programLine + "\r\nexit\r\n");
    }
    void startBatch() { processes.startBatch("c:\\winnt\\system32\\cmd.exe", scratch.path("go.bat")); }
    std::string seen(const std::string& name = "Quake III Arena/seen") {
        EXPECT_TRUE(comesTrue([&] { return scratch.has(name); }));
        return scratch.content(name);
    }
    std::string failure(const std::function<void()>& action) {
        try {
            action();
        } catch (const RuntimeFailure& failed) {
            return failed.what();
        }
        return "no failure";
    }
    void endGames() {
        for (const pid_t game : processes.startedGames()) ::kill(-game, SIGKILL);
        EXPECT_TRUE(comesTrue([&] { return processes.startedGames().empty(); }));
    }

    ScratchFolder scratch;
    QtProcesses processes{0, nullptr};
};

TEST_F(ProcessesTest, CarriesABatchFileOutWithTheseArguments) {
    putProgram("Quake III Arena/Quake3.EXE", kRecorder);
    putBatch("quake3.exe  +set n \"a  b\" '$(touch x)' %PATH% ^& ;|>x \"\" \xE4\xFF `id`");
    startBatch();
    std::string expected = scratch.native("Quake III Arena");
    for (const std::string word :
         {"0", "as it is", "+set", "n", "a  b", "'$(touch", "x)'", "%PATH%", "^&", ";|>x", "", "\xE4\xFF", "`id`"})
        expected += '\0' + word;
    EXPECT_EQ(seen(), expected + '\0');
    endGames();
}

TEST_F(ProcessesTest, KnowsTheGamesThatRunEachInASessionOfItsOwn) {
    putProgram("Quake III Arena/quake3.exe", "#!/bin/sh\nexec sleep 600\n");
    putProgram("Quake III Arena/short.exe", "#!/bin/sh\nexit 3\n");
    putBatch("quake3.exe");
    startBatch();
    processes.start("short.exe", scratch.path("Quake III Arena"));
    ASSERT_TRUE(comesTrue([&] { return processes.startedGames().size() == 1; }));
    const pid_t game = processes.startedGames().front();
    EXPECT_EQ(::getsid(game), game);
    endGames();
    EXPECT_EQ(::kill(game, 0), -1) << "nothing stays behind, no zombie either";
}

TEST_F(ProcessesTest, AGameThatEndsIsReapedWithoutBeingAskedFor) {
    putProgram("Quake III Arena/short.exe", "#!/bin/sh\nexit 3\n");
    processes.start("short.exe", scratch.path("Quake III Arena"));
    EXPECT_TRUE(comesTrue([] {
        QCoreApplication::processEvents();
        siginfo_t info{};
        return ::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == -1 && errno == ECHILD;
    }));
    EXPECT_FALSE(processes.gameRuns());
}

TEST_F(ProcessesTest, WindowsProgramsGoThroughWine) {
    const std::string before = ::getenv("PATH");
    putProgram("Quake III Arena/quake3.exe", std::string("MZ\x90\0 rest", 9), 0644);
    putBatch("quake3.exe +a \"b c\"");
    scratch.makeFolder("bin");
    ::setenv("PATH", scratch.native("bin").c_str(), 1);
    EXPECT_EQ(failure([&] { startBatch(); }), "Can't start " + scratch.path("Quake III Arena\\quake3.exe") +
                                                  ": it is a Windows program and Wine is not installed");

    putProgram("bin/wine", kRecorder);
    ::setenv("PATH", (scratch.native("bin") + ":" + before).c_str(), 1);
    startBatch();
    EXPECT_NE(seen("bin/seen").find(scratch.native("Quake III Arena/quake3.exe") + std::string("\0+a\0b c\0", 8)),
              std::string::npos);
    ::setenv("PATH", before.c_str(), 1);
    endGames();
}

TEST_F(ProcessesTest, SaysWhatCouldNotBeStartedAndWhy) {
    putProgram("g/plain.exe", kRecorder, 0644);
    putProgram("g/nothing.exe", "no program at all\n");
    putProgram("g/lost.exe", "#!/no/such/shell\n");
    scratch.makeFolder("g/folder.exe");
    const std::string g = scratch.path("g\\");
    const struct {
        std::string line, folder, message;
    } cases[] = {
        {"quake3.exe", g, g + "quake3.exe: there is no such file"},
        {"plain.exe", g, g + "plain.exe: the file is not marked as executable"},
        {"nothing.exe", g, g + "nothing.exe: it is not a program for this system"},
        {"lost.exe", g, g + "lost.exe: the interpreter that it names was not found"},
        {"folder.exe", g, g + "folder.exe: it is not a file"},
        {"x", scratch.path("gone"), scratch.path("gone\\x") + ": there is no folder " + scratch.path("gone")},
        {"x", g + "plain.exe", g + "plain.exe\\x: " + g + "plain.exe is not a folder"},
        {" ", g, "a program without a name"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(failure([&] { processes.start(c.line, c.folder); }), "Can't start " + c.message);
    EXPECT_TRUE(processes.startedGames().empty());
    scratch.put("go.bat", std::string(1024 * 1024 + 1, '\n'));
    EXPECT_EQ(failure([&] { startBatch(); }),
              "Can't start " + scratch.path("go.bat: it is too large for a batch file"));
}

}  // namespace
}  // namespace gatehouse
