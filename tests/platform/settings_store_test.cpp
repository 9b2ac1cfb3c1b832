#include "platform/qt/qt_settings_store.h"

#include "base/runtime_failure.h"
#include "scratch_folder.h"

#include <QFile>
#include <QSettings>
#include <gtest/gtest.h>

namespace gatehouse {
namespace {

using testing::OrdinaryUser;
using testing::ScratchFolder;

class SettingsStoreTest : public ::testing::Test {
protected:
    ScratchFolder scratch;
    QtSettingsStore store{scratch.native("config/gatehouse/gatehouse.ini")};
    static constexpr const char* kFile = "config/gatehouse/gatehouse.ini";
};

TEST_F(SettingsStoreTest, EveryTextComesBackToTheByte) {
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    std::string high;
    for (int i = 255; i >= 128; --i) high += static_cast<char>(i);
    const std::string texts[] = {
        "", " ", "  two blanks  ", "C:\\games\\quake3\\", "\"quoted\"", "a;b,c=d%20%", "@Invalid()", "@@", "@",
        "@ByteArray(x)", "[config]", "line\r\nline\ttab", "\\x41\\n", ", ,", all, high, high + all,
        "C:\\home\\j\xC3\xBCrgen\\", "\xC3", "\xE9t\xE9", "\xEF\xBB\xBFmark", "\xEF\x9E\x80 private", "\xED\xA0\x80",
        "\xC0\x80", "\xF0\x9F\x8E\xAE\xF5", "\xF4\x90\x80\x80", "\xEF\xBF\xBE", std::string("\0", 1),
        std::string(100'000, '\x99'),
    };
    for (const std::string& text : texts) {
        store.write({{"exepath", text}});
        EXPECT_TRUE(QtSettingsStore(scratch.native(kFile)).read("exepath") == text) << text.substr(0, 60);
        // To the byte as the toolkit's own settings write it.
        const QString own = QString::fromStdString(scratch.native("own.ini"));
        QFile::remove(own);
        QSettings(own, QSettings::IniFormat).setValue("config/exepath", storedText(text));
        EXPECT_TRUE(scratch.content(kFile) == scratch.content("own.ini")) << scratch.content(kFile).substr(0, 80);
    }
}

TEST_F(SettingsStoreTest, ReadsWhatWasWrittenByHandMeanwhile) {
    EXPECT_EQ(store.read("exepath"), std::nullopt);
    EXPECT_FALSE(scratch.has(kFile));
    store.write({{"exepath", "C:\\home\\j\xC3\xBCrgen\\quake3.exe"}});
    EXPECT_EQ(scratch.content(kFile), "[config]\nexepath=C:\\\\home\\\\j\xC3\xBCrgen\\\\quake3.exe\n");
    scratch.put(kFile, "[config]\nexepath=C:\\\\new\\\\quake3.exe\nextracmdline=+set a b, c\n[other]\nkey=1\n");
    EXPECT_EQ(store.read("exepath"), "C:\\new\\quake3.exe");
    EXPECT_EQ(store.read("extracmdline"), "+set a b, c");
    scratch.put(kFile, "; mine\n[other]\nkey=1\n[config]\na=\"1\n[x]\"\nb=2\nexepath=old\n\n[third]\nkey=2");
    store.write({{"exepath", "new"}, {"b", "2"}, {"c", "3"}});
    EXPECT_EQ(scratch.content(kFile),
              "; mine\n[other]\nkey=1\n[config]\na=\"1\n[x]\"\nb=2\nexepath=new\nc=3\n\n[third]\nkey=2");
    EXPECT_EQ(store.read("a"), "1\n[x]");
    store.deleteSection();
    EXPECT_EQ(store.read("exepath"), std::nullopt);
    EXPECT_EQ(scratch.content(kFile), "; mine\n[other]\nkey=1\n[third]\nkey=2");
}

TEST_F(SettingsStoreTest, DamageFailsButCanBeCleared) {
    scratch.put(kFile, "[config]\nexepath=C:\\\\x\nstartw");
    for (int i = 0; i < 2; ++i) EXPECT_THROW(store.read("exepath"), RuntimeFailure);  // not at the first reading alone
    EXPECT_THROW(store.write({{"exepath", "x"}}), RuntimeFailure);
    store.deleteSection();
    EXPECT_EQ(scratch.content("config/gatehouse/gatehouse.ini.damaged"), "[config]\nexepath=C:\\\\x\nstartw");
    EXPECT_EQ(store.read("exepath"), std::nullopt);
    store.write({{"exepath", "again"}});
    EXPECT_EQ(store.read("exepath"), "again");
}

TEST_F(SettingsStoreTest, WhatCantBeOpenedIsNoEmptyStore) {
    const auto failsNamingTheFile = [&](auto&& action) {
        try {
            action();
        } catch (const RuntimeFailure& failure) {
            return std::string(failure.what()).find(scratch.native(kFile)) != std::string::npos;
        }
        return false;
    };
    const auto expectFailures = [&](bool reading) {
        EXPECT_EQ(failsNamingTheFile([&] { store.read("exepath"); }), reading);
        EXPECT_TRUE(failsNamingTheFile([&] { store.write({{"exepath", "x"}}); }));
        EXPECT_TRUE(failsNamingTheFile([&] { store.deleteSection(); }));
    };
    scratch.makeFolder(kFile);
    expectFailures(true);
    std::filesystem::remove(scratch.native(kFile));

    store.write({{"exepath", "kept"}});
    ASSERT_EQ(::chmod(scratch.native(kFile).c_str(), 0), 0);
    {
        const OrdinaryUser ordinary;
        expectFailures(true);
    }
    ASSERT_EQ(::chmod(scratch.native(kFile).c_str(), 0444), 0);
    ASSERT_EQ(::chmod(scratch.native("config/gatehouse").c_str(), 0555), 0);
    {
        const OrdinaryUser ordinary;
        expectFailures(false);
        EXPECT_EQ(store.read("exepath"), "kept");
    }
    ASSERT_EQ(::chmod(scratch.native("config/gatehouse").c_str(), 0755), 0);
}

}  // namespace
}  // namespace gatehouse
