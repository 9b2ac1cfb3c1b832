#include "window/widgets/binders.h"

#include "window/widgets/spin_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

#include <functional>
#include <tuple>

namespace gatehouse {
namespace {

class BindersTest : public testing::Test {
protected:
    BindersTest() {
        bind(*make<QCheckBox>(), pure);
        bind(*make<QLineEdit>(), host);
        bind(*make<SpinText>(), limit, Typed::Number);
        bind(*make<QComboBox>(), mod);
        bind(*make<SpinText>(), hunk);
        bind(*make<QLineEdit>(), folder);
        window.show();
    }

    template <class Widget>
    Widget* make() {
        auto* widget = new Widget(&window);
        layout.addRow(widget);
        return widget;
    }

    template <class Widget>
    Widget& find(const char* name) {
        return *window.findChild<Widget*>(name);
    }

    FieldGroup group{"test"};
    CheckField pure{group, {"q3pure", "Pure Server:", "Only <b>pure</b> & simple."}};
    TextField host{group, {"q3hostname", "Hostname:"}, "noname"};
    TextField limit{group, {"fraglimit", "Frag Limit:"}, "20", Range{5, 200, 5}};
    ListField mod{group, {"modcombo", "Mod:"}, {"one", "two", "three"}, 1};
    TextField hunk{group, {.name = "q3hunksize", .takenWhenLeft = true}, "56", Range{64, 256, 16}};
    TextField folder{group, {.name = "ghcdir", .isPath = true}};
    QWidget window;
    QFormLayout layout{&window};
};

TEST_F(BindersTest, AFieldThatIsTakenWhenLeftWaitsForTheWholeText) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto& spin = find<SpinText>("q3hunksize");
    spin.setFocus();
    spin.selectAll();
    QTest::keyClicks(&spin, "12");
    EXPECT_EQ(hunk.text(), "56");
    QTest::keyClick(&spin, Qt::Key_Up);
    EXPECT_EQ(hunk.text(), "64") << "the buttons count at once, on from what is typed";
    QWidget another;
    another.show();
    spin.selectAll();
    QTest::keyClicks(&spin, "1");
    another.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&another));
    EXPECT_EQ(hunk.text(), "64") << "another window is no leaving";
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const auto& [typed, leave] : {std::pair<const char*, std::function<void()>>(
                                           "128", [&] { QTest::keyClick(&spin, Qt::Key_Return); }),
                                       {"129", [&] { find<QLineEdit>("q3hostname").setFocus(); }},
                                       {"130", leaveTypedText}}) {
        spin.setFocus();
        spin.selectAll();
        QTest::keyClicks(&spin, typed);
        EXPECT_NE(hunk.text(), typed);
        leave();
        EXPECT_EQ(hunk.text(), typed);
    }
}

TEST_F(BindersTest, APathKeepsItsBytesWhereALetterIsChanged) {
    for (const auto& [before, typed, after] :
         {std::tuple("Jos\xC3\xA9", u"x", "Jos\xC3\xA9x"), {"", u"\u00E9", "\xC3\xA9"}, {"Jos\xE9", u"x", "Jos\xE9x"},
          {"Jos\xE9", u"\u0416", "Jos\xC3\xA9\xD0\x96"}}) {  // the last can't be told in the bytes that were there
        folder.setText(before);
        find<QLineEdit>("ghcdir").insert(QString::fromUtf16(typed));
        EXPECT_EQ(folder.text(), after);
    }
}

TEST_F(BindersTest, ShowingAValueNeverChangesIt) {
    int changes = 0;
    mod.changed.connect([&changes] { ++changes; });
    pure.setValue(-1);  // ticked, though not by the box
    EXPECT_TRUE(find<QCheckBox>("q3pure").isChecked());
    EXPECT_EQ(pure.value(), -1);
    const std::string odd("\x01 line\nbreak\t\x81\x00 end ", 21);
    host.setText(odd);
    EXPECT_EQ(host.text(), odd);
    mod.setChoices({{"a & b", 7}, {"<c>", 8}});
    EXPECT_EQ(find<QComboBox>("modcombo").currentIndex(), -1);
    EXPECT_EQ(find<QComboBox>("modcombo").count(), 2);
    EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace gatehouse
