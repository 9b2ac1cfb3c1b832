#include "platform/qt/zip_archives.h"

#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <zip.h>

#include <algorithm>
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
    bool extract(const std::string& entry, std::uint64_t most = 1 << 30) {
        scratch.makeFolder("target");
        const auto archive = archives.open(scratch.path("pak.pk3"));
        return archive && !archive->extract(entry, most, scratch.path("target\\"), {});
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
    Names hostile{"../x", "..\\..\\x", "a/../../x", "maps/..\\..\\..\\x", "/x", "\\x", "//x", "C:\\x", "c:x",
                        "maps/C:/x", "x:stream", "..", ".", "maps/", "maps\\", "linked/x", "maps/linked/x",
                        "folder", "usermdls.txt/x"};
    std::string deep = "x";
    for (int i = 0; i < 40; ++i) deep.insert(0, "a/");
    hostile.push_back(deep);
    hostile.push_back(std::string(5000, 'x'));
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
    for (const auto& name : hostile) EXPECT_TRUE(archives.store("x", name, scratch.path("target"))) << name;
    EXPECT_TRUE(archives.open(scratch.path("pak.pk3"))->extract("folder", 1, scratch.path("none"), {}));
    EXPECT_EQ(count(), before);
}

TEST_F(ArchivesTest, WhatIsHandedOnInPiecesCountsOnlyWhole) {
    std::string content;
    for (int i = 0; content.size() < 70'000; ++i) content += std::to_string(i % 1000);
    content.resize(70'003);
    make({{"maps/a.bsp", content}, {"empty", ""}});
    const auto read = [this](const std::string& entry, std::uint64_t most, std::string& bytes, std::size_t& pieces) {
        const auto archive = archives.open(scratch.path("pak.pk3"));
        return archive->read(entry, most, 32768, [&](std::uint64_t size, std::string_view piece) {
            EXPECT_TRUE(piece.size() == 32768 || bytes.size() + piece.size() == size);
            bytes += piece;
            ++pieces;
        });
    };
    struct Case {
        const char* entry;
        std::uint64_t most;
        bool whole;
        std::size_t pieces;
    };
    for (const Case& one : {Case{"maps/a.bsp", 70'003, true, 3}, Case{"MAPS/A.BSP", 1 << 20, true, 3},
                            Case{"maps/a.bsp", 70'002, false, 0}, Case{"empty", 0, true, 0}, Case{"b", 9, false, 0}}) {
        std::string bytes;
        std::size_t pieces = 0;
        EXPECT_EQ(!read(one.entry, one.most, bytes, pieces), one.whole) << one.entry;
        EXPECT_EQ(pieces, one.pieces) << one.entry;
        EXPECT_TRUE(!one.whole || bytes == (one.most == 0 ? "" : content));
    }
    // One other byte in the middle of what is packed, and every cut of the file.
    const std::string file = scratch.content("Pak.PK3");
    std::string damaged = file;
    damaged[60] = static_cast<char>(damaged[60] ^ 0x55);
    for (std::size_t length = file.size(); length > 0; length -= std::min<std::size_t>(length, 97)) {
        scratch.put("Pak.PK3", length == file.size() ? damaged : file.substr(0, length - 1));
        EXPECT_FALSE(extract("maps/a.bsp")) << length;
        EXPECT_FALSE(std::filesystem::exists(scratch.native("target/maps/a.bsp")));
    }
}

}  // namespace
}  // namespace gatehouse
