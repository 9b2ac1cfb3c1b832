#include "content/model_catalog.h"

#include "base/run_state.h"
#include "support/core/fakes.h"
#include "support/core/garbage.h"

#include <gtest/gtest.h>

namespace gatehouse {
namespace {

struct ModelCatalogTest : testing::Test {
    ModelCatalogTest() {
        run.AppDir = "C:\\gh\\";
        catalog.loadStandardModels();
        standardNodes = catalog.mdltree.count();
    }

    void loadUserModels(const std::string& content) {
        world.files.put("C:\\gh\\usermdls.txt", content);
        catalog.loadUserModels();
    }
    std::vector<std::string> userPaths() const {
        std::vector<std::string> paths;
        for (int i = standardNodes + 1; i <= catalog.mdltree.count(); ++i) paths.push_back(catalog.fullPath(i));
        return paths;
    }

    fake::World world;
    RunState& run = world.run;
    ModelCatalog catalog{world.ground};
    int standardNodes = 0;
};

TEST_F(ModelCatalogTest, SelectsByPathInAnyCase) {
    struct Case {
        const char* path;
        bool found;
        const char* selected;
    };
    const Case cases[] = {{"sarge\\KRUSADE", true, "Sarge\\Krusade"},
                          {"SARGE", true, "Sarge\\Default"},  // a model stands for its default skin
                          {"visor/gorre", false, "Sarge\\Default"},
                          {"Gorre", false, "Sarge\\Default"},
                          {"Visor\\", false, "Sarge\\Default"},
                          {"", false, "Sarge\\Default"}};
    for (const Case& one : cases) {
        ASSERT_TRUE(catalog.selectModel("Sarge\\Default"));
        EXPECT_EQ(catalog.selectModel(one.path), one.found) << one.path;
        EXPECT_EQ(catalog.selectedModel(), one.selected) << one.path;
    }
}

TEST_F(ModelCatalogTest, UserSkinsGoUnderTheirModels) {
    world.log.lines.clear();
    loadUserModels("Biker/Stroggo\r\nNew/One\r\nNew/Two\r\nno slash\r\nSarge/a/b\r\nNew/Three\r\nsarge/X \r\n");
    EXPECT_EQ(catalog.fullPath(standardNodes), "Xaero\\Blue");
    EXPECT_EQ(userPaths(), (std::vector<std::string>{"Biker\\Stroggo", "New", "New\\One", "New\\Two", "Sarge\\a/b",
                                                     "New\\Three", "sarge", "sarge\\X "}));
    EXPECT_TRUE(world.log.has("Couldn't parse mdl line:no slash"));
    EXPECT_TRUE(world.log.has("Loaded sarge/X"));
    EXPECT_EQ(world.log.lines.back(), "2 models/ 6 skins parsed OK");
    EXPECT_EQ(catalog.selectedModel(), "Sarge\\Default");
}

}  // namespace
}  // namespace gatehouse
