#include "platform/qt/zip_archives.h"

#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <zip.h>

#include <vector>

namespace gatehouse {
namespace {

using testing::ScratchFolder;
using Names = std::vector<std::string>;

struct Entry {
    std::string name;
    std::string content = "x";
};

/// Makes an archive with these names as they stand, whatever they are.
void makeArchive(const std::string& native, const std::vector<Entry>& entries) {
    zip_t* archive = ::zip_open(native.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    ASSERT_NE(archive, nullptr);
    for (const Entry& entry : entries) {
        zip_source_t* source = ::zip_source_buffer(archive, entry.content.data(), entry.content.size(), 0);
        ASSERT_GE(::zip_file_add(archive, entry.name.c_str(), source, ZIP_FL_ENC_GUESS), 0) << entry.name;
    }
    ASSERT_EQ(::zip_close(archive), 0);
}

class ArchivesTest : public ::testing::Test {
protected:
    void make(const std::vector<Entry>& entries) { makeArchive(scratch.native("Pak.PK3"), entries); }
    bool extract(const std::string& entry) {
        scratch.makeFolder("target");
        return archives.extract(scratch.path("pak.pk3"), entry, scratch.path("target\\"));
    }
    /// Number of files and folders anywhere in the scratch folder.
    long count() const {
        using Walk = std::filesystem::recursive_directory_iterator;
        return std::distance(Walk(scratch.native()), Walk());
    }

    ScratchFolder scratch;
    ZipArchives archives;
};

TEST_F(ArchivesTest, ExtractsBelowTheFolder) {
    make({{"maps/Q3DM1.bsp", "map"}, {"maps\\back.bsp", "back"}, {"LevelShots//./x.jpg", "picture"}, {"top", ""},
          {"maps/huge", std::string(3'000'000, 'h')}});
    scratch.put("target/levelshots/X.JPG", "old");
    for (const char* entry : {"maps/Q3DM1.bsp", "maps\\back.bsp", "LevelShots//./x.jpg", "top", "maps/huge"})
        EXPECT_TRUE(extract(entry)) << entry;
    EXPECT_EQ(scratch.content("target/maps/Q3DM1.bsp"), "map");
    EXPECT_EQ(scratch.content("target/maps/back.bsp"), "back");
    EXPECT_EQ(scratch.content("target/levelshots/X.JPG"), "picture");
    EXPECT_EQ(scratch.content("target/top"), "");
    EXPECT_TRUE(scratch.content("target/maps/huge") == std::string(3'000'000, 'h'));
    scratch.put("target/maps/Q3DM1.bsp", "stale");
    EXPECT_TRUE(extract("maps/q3dm1.BSP"));
    EXPECT_EQ(scratch.content("target/maps/Q3DM1.bsp"), "map");
    EXPECT_EQ(count(), 9);  // the archive, the target, its two folders and five files

    // A link in the file's place is replaced, not followed.
    scratch.put("outside", "kept");
    std::filesystem::remove(scratch.native("target/top"));
    scratch.link(scratch.native("outside"), "target/top");
    EXPECT_TRUE(extract("top"));
    EXPECT_EQ(scratch.content("outside") + scratch.content("target/top"), "kept");
}

TEST_F(ArchivesTest, NothingLandsOutside) {
    const Names hostile{"../x", "..\\..\\x", "a/../../x", "maps/..\\..\\..\\x", "/x", "\\x", "//x", "C:\\x", "c:x",
                        "maps/C:/x", "x:stream", "..", ".", "maps/", "maps\\", "linked/x", "maps/linked/x",
                        "folder"};
    std::vector<Entry> entries;
    for (const auto& name : hostile) entries.push_back({name});
    make(entries);
    scratch.makeFolder("outside");
    scratch.makeFolder("target/maps");
    scratch.makeFolder("target/folder");
    scratch.link(scratch.native("outside"), "target/linked");
    scratch.link(scratch.native("outside"), "target/maps/linked");
    const long before = count();
    for (const auto& name : hostile) EXPECT_FALSE(extract(name)) << name;
    EXPECT_FALSE(extract("missing"));
    EXPECT_FALSE(archives.extract(scratch.path("pak.pk3"), "linked/x", scratch.path("none")));
    EXPECT_EQ(count(), before);
}

}  // namespace
}  // namespace gatehouse
