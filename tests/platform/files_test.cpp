#include "platform/qt/qt_files.h"

#include "platform/qt/mounts.h"
#include "scratch_folder.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <functional>

namespace gatehouse {
namespace {

using testing::OrdinaryUser;
using testing::ScratchFolder;
using Names = std::vector<std::string>;

/// No file can grow beyond a size, as on a disk that is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }

private:
    rlimit before_{};
};

class FilesTest : public ::testing::Test {
protected:
    void put(const std::string& path, const std::string& text) {
        const auto writer = files.createText(path);
        writer->write(text);
        writer->close();
    }
    Names lines(const std::string& path) {
        Names result;
        const auto reader = files.openText(path);
        for (std::string line; reader->readLine(line);) result.push_back(line);
        return result;
    }
    static Names names(const std::vector<FolderEntry>& entries) {
        Names result;
        for (const auto& entry : entries) result.push_back(entry.name);
        return result;
    }
    /// Message of the failure, or a text that says that there was none.
    static std::string failure(const std::function<void()>& action) {
        try {
            action();
        } catch (const FileFailure& failed) {
            return failed.what();
        }
        return "no failure";
    }

    ScratchFolder scratch;
    QtFiles files{scratch.native("cache")};
};

TEST(NativePathsTest, MapsBothWays) {
    const struct {
        std::string program, native;
    } cases[] = {
        {"c:/a/b", "/a/b"},      {"\\a\\b", "/a/b"},   {"/a//b/", "/a/b"},
        {"C:", "/"},             {"\\", "/"},         {"a\\b", "a/b"},
        {"C:\\a\\..\\b", "/a/../b"}, {"D:\\a", ""},      {"", ""},
        {"C:\\a\xFF z", "/a\xFF z"}, {std::string("C:\\a\0b", 6), ""},
    };
    for (const auto& each : cases) EXPECT_EQ(toNativePath(each.program), each.native) << each.program;
    EXPECT_EQ(toProgramPath("/home/me/x y"), "C:\\home\\me\\x y");
}

TEST_F(FilesTest, FindsExactNamesFirstThenAnyCase) {
    scratch.put("Mixed/Case/File.TXT", "deep");
    scratch.put("both/NAME", "upper");
    scratch.put("both/name", "lower");
    scratch.put("Twins/AB/in upper", "1");
    scratch.put("Twins/Ab/in mixed", "2");
    scratch.put("umlaut/\xC4", "not a letter of ASCII");
    const struct {
        std::string path;
        bool found;
    } cases[] = {
        {"mixed\\case\\file.txt", true},
        {"MIXED/CASE/FILE.txt", true},
        {"mixed\\case", false},
        {"both\\Name", true},
        {"twins\\ab\\IN UPPER", true},
        {"twins\\ab\\in mixed", false},
        {"umlaut\\\xE4", false},
        {"mixed\\case\\file.txt\\x", false},
        {std::string(5000, 'x'), false},
    };
    for (const auto& each : cases) EXPECT_EQ(files.fileExists(scratch.path(each.path)), each.found) << each.path;
    EXPECT_EQ(lines(scratch.path("both\\name")), Names{"lower"});
    EXPECT_EQ(lines(scratch.path("both\\Name")), Names{"upper"});
    EXPECT_TRUE(files.folderExists(scratch.path("mixed\\CASE\\")));
    EXPECT_EQ(files.fileSize(scratch.path("MIXED\\case\\file.txt")), 4u);
}

TEST_F(FilesTest, ReadsLinesOfEveryKind) {
    const std::string huge(9'000'000, 'q');
    const struct {
        std::string content;
        Names lines;
    } cases[] = {
        {"", {}},
        {"a\r\nb\nc", {"a", "b", "c"}},
        {"a\r\n\r\n\nend\r\n", {"a", "", "", "end"}},
        {"a\rb\r\r\n", {"a\rb\r"}},
        {std::string("nul\0in\x1A\xFF\n\x1A", 10), {std::string("nul\0in\x1A\xFF", 8), "\x1A"}},
        {huge + "\r\n" + huge, {huge, huge}},
    };
    for (const auto& each : cases) {
        scratch.put("in.txt", each.content);
        EXPECT_TRUE(lines(scratch.path("in.txt")) == each.lines) << each.content.substr(0, 20);
    }
}

TEST_F(FilesTest, WritesLinesThroughAtOnce) {
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    const auto writer = files.createText(scratch.path("out.txt"));
    writer->writeLine("one");
    EXPECT_EQ(scratch.content("out.txt"), "one\r\n");
    writer->write(all);
    EXPECT_EQ(scratch.content("out.txt"), "one\r\n" + all);
    writer->close();
    files.appendText(scratch.path("OUT.TXT"))->writeLine("more");
    EXPECT_EQ(scratch.content("out.txt"), "one\r\n" + all + "more\r\n");
    files.appendText(scratch.path("new.txt"))->writeLine("first");
    EXPECT_EQ(scratch.content("new.txt"), "first\r\n");
    put(scratch.path("Out.txt"), "anew");
    EXPECT_EQ(scratch.content("out.txt"), "anew");
}

TEST_F(FilesTest, FaultsNameTheFileAndTheReason) {
    scratch.makeFolder("folder");
    scratch.link("/dev/full", "full");
    ASSERT_EQ(::mkfifo(scratch.native("pipe").c_str(), 0600), 0);
    const std::string full = scratch.path("full");
    const std::string folder = scratch.path("folder");
    const std::string none = scratch.path("none\\x");
    const struct {
        std::string path, reason;
        std::function<void()> action;
    } cases[] = {
        {full, "No space left on device", [&] { files.createText(full)->writeLine("x"); }},
        {folder, "Is a directory", [&] { files.createText(folder); }},
        {folder, "Is a directory", [&] { files.openText(folder); }},
        {folder, "Is a directory", [&] { files.deleteFile(folder, true); }},
        {scratch.path("pipe"), "Not a file", [&] { files.openText(scratch.path("pipe")); }},
        {scratch.path("pipe"), "No such device or address", [&] { files.createText(scratch.path("pipe")); }},
        {none, "No such file or directory", [&] { files.openText(none); }},
        {none, "No such file or directory", [&] { files.deleteFile(none, false); }},
        {"D:\\x", "No such file or directory", [&] { files.createText("D:\\x"); }},
    };
    for (const auto& each : cases) {
        const std::string told = failure(each.action);
        EXPECT_TRUE(told.ends_with(each.path + ": " + each.reason)) << told << " instead of " << each.reason;
    }
}

TEST_F(FilesTest, OldSpellingComesBack) {
    const auto only = [&] { return names(files.listFolder(scratch.path("dir")).files); };
    scratch.put("dir/MyFile.Cfg", "1");
    put(scratch.path("dir\\myfile.cfg"), "2");
    EXPECT_EQ(only(), Names{"MyFile.Cfg"});
    files.deleteFile(scratch.path("DIR\\MYFILE.CFG"), false);
    EXPECT_EQ(only(), Names{});
    put(scratch.path("Dir\\myfile.cfg"), "3");
    EXPECT_EQ(only(), Names{"MyFile.Cfg"});
    files.renameFile(scratch.path("dir\\myfile.cfg"), scratch.path("dir\\Other"));
    files.appendText(scratch.path("dir\\myfile.CFG"))->writeLine("4");
    EXPECT_EQ(only(), (Names{"MyFile.Cfg", "Other"}));
    files.renameFile(scratch.path("dir\\other"), scratch.path("dir\\OTHER"));
    EXPECT_EQ(only(), (Names{"MyFile.Cfg", "OTHER"}));
}

TEST_F(FilesTest, CopiesAndRenamesOverPresentFiles) {
    scratch.put("from", std::string(150'000, 'a'));
    scratch.put("To", "old");
    files.copyFile(scratch.path("FROM"), scratch.path("to"));
    EXPECT_TRUE(scratch.content("To") == scratch.content("from"));
    EXPECT_NE(failure([&] { files.copyFile(scratch.path("from"), scratch.path("From")); }), "no failure");
    EXPECT_EQ(files.fileSize(scratch.path("from")), 150'000u);
    scratch.put("bad", "new");
    files.renameFile(scratch.path("bad"), scratch.path("to"));
    EXPECT_EQ(scratch.content("To"), "new");
    EXPECT_FALSE(scratch.has("bad"));
}

TEST_F(FilesTest, AReplacedFileIsWholeAtEveryMoment) {
    const auto modeOf = [&](const char* name) {
        struct stat found {};
        return ::stat(scratch.native(name).c_str(), &found) == 0 ? found.st_mode & 07777 : 0;
    };
    const auto all = [&] { return names(files.listFolder(scratch.path("dir")).files); };
    scratch.put("big", std::string(1000, 'x'));
    scratch.put("dir/Secret.ghs", "old");
    scratch.link("Secret.ghs", "dir/link");
    ASSERT_EQ(::chmod(scratch.native("dir/Secret.ghs").c_str(), 0600), 0);
    scratch.put("dir/.Secret.ghs.4194305-0.new", "of a program that was killed");
    {
        const auto writer = files.replaceText(scratch.path("dir\\LINK"));
        writer->writeLine("new");
        EXPECT_EQ(scratch.content("dir/Secret.ghs"), "old");
        const auto left = files.replaceText(scratch.path("dir\\secret.ghs"));  // another program's, as it were
        left->write("never closed");
        writer->close();
    }
    EXPECT_EQ(scratch.content("dir/Secret.ghs"), "new\r\n");
    EXPECT_EQ(modeOf("dir/Secret.ghs"), 0600u);
    EXPECT_TRUE(std::filesystem::is_symlink(scratch.native("dir/link")));
    EXPECT_EQ(all(), (Names{"link", "Secret.ghs"}));
    ASSERT_EQ(::chmod(scratch.native("dir/Secret.ghs").c_str(), 0400), 0);
    EXPECT_NE(failure([&] { files.replaceText(scratch.path("dir\\Secret.ghs")); }), "no failure");

    // The folder takes no new file: the old one is written in its place, and put back when that fails.
    scratch.put("shut/open.cfg", "the old text");
    ASSERT_EQ(::chmod(scratch.native("shut/open.cfg").c_str(), 0666), 0);
    ASSERT_EQ(::chmod(scratch.native("shut").c_str(), 0555), 0);
    const auto replace = [&](const std::string& text) {
        const OrdinaryUser user;
        const auto writer = files.replaceText(scratch.path("shut\\open.cfg"));
        writer->write(text);
        writer->close();
    };
    replace("short");
    EXPECT_EQ(scratch.content("shut/open.cfg"), "short");
    {
        const FullDisk disk(64);
        EXPECT_NE(failure([&] { replace(std::string(1000, 'x')); }), "no failure");
        EXPECT_NE(failure([&] { files.copyFile(scratch.path("big"), scratch.path("dir\\link")); }), "no failure");
    }
    EXPECT_EQ(scratch.content("shut/open.cfg"), "short");
    EXPECT_EQ(all(), (Names{"link", "Secret.ghs"}));
}

TEST_F(FilesTest, WriteProtectedFilesAreDeletedByForceOnly) {
    scratch.put("kept", "x");
    ASSERT_EQ(::chmod(scratch.native("kept").c_str(), 0444), 0);
    EXPECT_THROW(files.deleteFile(scratch.path("kept"), false), FileFailure);
    EXPECT_TRUE(scratch.has("kept"));
    files.deleteFile(scratch.path("kept"), true);
    EXPECT_FALSE(scratch.has("kept"));
}

TEST_F(FilesTest, FolderTreesGoByExactNameAndNeverThroughLinks) {
    scratch.put("outside/kept", "x");
    scratch.put("Tree/sub/file", "x");
    scratch.link(scratch.native("outside"), "Tree/sub/linked");
    scratch.link("/nowhere", "Tree/dangling");
    scratch.link(scratch.native("Tree"), "link");
    ASSERT_EQ(::chmod(scratch.native("Tree/sub").c_str(), 0555), 0);
    for (const char* refused : {"tree", "link", "link\\", "none", "Tree\\..", "Tree\\.", "outside\\kept"})
        EXPECT_THROW(files.deleteFolder(scratch.path(refused)), FileFailure) << refused;
    EXPECT_THROW(files.deleteFolder(""), FileFailure);
    EXPECT_TRUE(scratch.has("Tree/sub/file"));
    files.deleteFolder(scratch.path("Tree\\"));
    EXPECT_FALSE(scratch.has("Tree"));
    EXPECT_EQ(scratch.content("outside/kept"), "x");
}

TEST_F(FilesTest, ListsSortedWithoutWhatCantBeReadOrTold) {
    for (const char* name : {"b", "A", "a_", "B", "ab", ".hidden", "back\\slash", "\xE4"})
        scratch.put("List/" + std::string(name), "");
    for (const char* name : {"List/Sub", "List/asub", "List/closed", "List/unlistable"}) scratch.makeFolder(name);
    scratch.put("List/secret", "x");
    scratch.link("/nowhere", "List/dangling");
    scratch.link(scratch.native("List/Sub"), "List/linked");
    ASSERT_EQ(::mkfifo(scratch.native("List/pipe").c_str(), 0666), 0);
    for (const auto& [name, mode] : {std::pair{"secret", 0200}, {"closed", 0}, {"unlistable", 0300}})
        ASSERT_EQ(::chmod(scratch.native("List/" + std::string(name)).c_str(), static_cast<mode_t>(mode)), 0);

    const OrdinaryUser ordinary;
    const FolderListing listing = files.listFolder(scratch.path("list\\"));
    EXPECT_EQ(names(listing.files), (Names{".hidden", "A", "a_", "ab", "B", "b", "\xE4"}));
    EXPECT_EQ(names(listing.folders), (Names{"asub", "linked", "Sub"}));
    EXPECT_EQ(listing.files[1].path, scratch.path("List\\A"));
    EXPECT_EQ(listing.files[1].shortName, "A");
    EXPECT_THROW(files.listFolder(scratch.path("list\\closed")), FileFailure);
}

TEST_F(FilesTest, SearchPassesOverLinksAndForeignFileSystems) {
    for (const char* name : {"s/Quake3.EXE", "s/a.exe", "s/exe", "s/a.exe.txt", "s/sub/x"}) scratch.put(name, "");
    scratch.link(scratch.native("s/sub"), "s/linked");
    const FolderListing listing = files.searchListing(scratch.path("S"));
    EXPECT_EQ(names(listing.files), (Names{"a.exe", "Quake3.EXE"}));
    EXPECT_EQ(names(listing.folders), Names{"sub"});

    ASSERT_EQ(files.drives().size(), 1u);
    const FolderListing root = files.searchListing(files.drives()[0].path + "\\");
    const Names folders = names(root.folders);
    EXPECT_EQ(std::count(folders.begin(), folders.end(), "proc"), 0);
    ASSERT_EQ(std::count(folders.begin(), folders.end(), "usr"), 1);
}

TEST(MountsTest, TakesPseudoAndNetworkFileSystems) {
    const std::string info =
        "27 1 254:0 / / rw,relatime - ext4 /dev/vda rw\n"
        "22 27 0:21 / /proc rw,relatime shared:1 master:2 - proc proc rw\n"
        "30 27 0:30 / /mnt/with\\040blank rw - nfs4 server:/x rw\n"
        "31 27 0:31 / /home/me/far rw - fuse.sshfs me@far: rw\n"
        "32 27 0:32 / /mnt/stick rw - fuseblk /dev/sdb1 rw\n"
        "34 27 0:34 / /mnt/twice rw - autofs systemd-1 rw\n"
        "35 34 0:35 / /mnt/twice rw - ext4 /dev/sdc1 rw\n"
        "broken line\n\n";
    EXPECT_EQ(foreignMounts(info), (std::set<std::string>{"/proc", "/mnt/with blank", "/home/me/far"}));
}

TEST_F(FilesTest, RootFilesGoToTheCacheWhereTheUserMayNotWrite) {
    const std::string name = "gatehouse-test-" + std::to_string(::getpid()) + ".txt";
    const std::string path = "C:\\" + name;
    {
        const OrdinaryUser ordinary;
        ASSERT_NE(::geteuid(), 0u);
        EXPECT_FALSE(files.fileExists(path));
        put(path, "reply");
        EXPECT_TRUE(files.fileExists("c:/" + name));
        EXPECT_EQ(files.fileSize(path), 5u);
        EXPECT_EQ(lines(path), Names{"reply"});
        EXPECT_EQ(scratch.content("cache/" + name), "reply");
        EXPECT_THROW(files.createText("C:\\etc\\" + name), FileFailure);
        files.deleteFile(path, false);
        EXPECT_FALSE(scratch.has("cache/" + name));
    }
}

}  // namespace
}  // namespace gatehouse
