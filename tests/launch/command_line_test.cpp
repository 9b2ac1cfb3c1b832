#include "launch/command_line.h"

#include "launch/batch_file.h"
#include "launch_fixture.h"

namespace gatehouse {
namespace {

class CommandLineTest : public LaunchFixture {
protected:
    CommandLineTest() {
        chooseMod("Base", "baseq3");
        doc.q3hunksize.setText("56");
        doc.q3serverip.setText("");
        doc.q3serverport.setText("27960");
    }
    CommandLine line{run, doc, mods, world.log};
};

TEST(FindComspec, TakesTheEnvironmentOrThePlatformsOwn) {
    struct Case {
        int platform;
        std::vector<std::string> environment;
        std::string comspec, logged;
    };
    const Case cases[] = {
        {2, {"A=1", "comspec=", "COMSPEC=x"}, "", "OS is Windows NT"},
        {2, {"XCOMSPEC=no", "COMSPECS=no", "", "COMSPEC=behind the end"}, "c:\\winnt\\system32\\cmd.exe",
         "Could not find comspec. Defaulting to c:\\winnt\\system32\\cmd.exe"},
        {1, {}, "c:\\command.com", "OS is Win95/98"},
        {0, {}, "c:\\command.com", "!Problem getting OS version. Assuming Win95/98"},
    };
    for (const Case& one : cases) {
        fake::World world;
        world.processes.platformId = one.platform;
        world.processes.variables = one.environment;
        EXPECT_EQ(findComspec(world.processes, world.log), one.comspec);
        EXPECT_TRUE(world.log.has(one.logged));
    }
}

}  // namespace
}  // namespace gatehouse
