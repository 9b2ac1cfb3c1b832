#include "startup/ghtools.h"

#include "support/core/fakes.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

TEST(VersionUpdateTest, EachStepIsLogged) {
    fake::World world;
    world.run.AppDir = "C:\\gh\\";
    SettingsDocument doc;
    Observable<std::string> status;
    ContentRoom room(world.ground, world.services, doc, status);
    VersionUpdate update(world.ground, room);
    world.dialogs.answer("Gatehouse Upgrade", Answer::No);
    for (const char* title : {"Map & Model Scan Complete.", "Upgrade Summary"}) world.dialogs.answer(title, Answer::Ok);
    for (const char* version : {"00.02.49", "00.02.55"}) update.versionUpdate(version);
    EXPECT_EQ(world.log.lines,
              (std::vector<std::string>{"->version update started", "-->older than 00.02.50",
                                        "--->updating registry: lastcfg", "--->updating registry: ghcdir",
                                        "--->user chose NOT to scan for new maps/models.", "->version update finished",
                                        "->version update started", "-->no updates required",
                                        "->version update finished"}));
    EXPECT_TRUE(world.files.folderExists("C:\\gh\\levelshots"));
}

}  // namespace
}  // namespace gatehouse
