#include "platform/qt/qt_viewers.h"

#include "base/runtime_failure.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace gatehouse {
namespace {

using testing::ScratchFolder;

TEST(ViewersTest, StartsTheDesktopsViewer) {
    const ScratchFolder scratch;
    scratch.put("a $(b).txt", "x");
    scratch.makeFolder("bin");
    const std::string before = ::getenv("PATH");
    ::setenv("PATH", scratch.native("bin").c_str(), 1);
    EXPECT_THROW(QtViewers(true).viewText(scratch.path("a $(b).txt")), RuntimeFailure);

    scratch.put("bin/xdg-open", "#!/bin/sh\nprintf '%s' \"$*\" > \"$0.tmp\"\n/bin/mv \"$0.tmp\" \"$0.seen\"\n");
    ::chmod(scratch.native("bin/xdg-open").c_str(), 0755);
    QtViewers viewers(true);
    viewers.viewText(scratch.path("a $(b).txt"));
    ::setenv("PATH", before.c_str(), 1);
    for (int i = 0; i < 500 && !scratch.has("bin/xdg-open.seen"); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(scratch.content("bin/xdg-open.seen"), scratch.native("a $(b).txt"));
}

}  // namespace
}  // namespace gatehouse
