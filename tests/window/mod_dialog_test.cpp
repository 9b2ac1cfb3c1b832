#include "window/dialogs/mod_dialog.h"

#include "mods/mod_file.h"
#include "support/core/fakes.h"
#include "window/rules/mod_options.h"

#include <QAccessible>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

namespace gatehouse {
namespace {

class ModDialogTest : public testing::Test {
protected:
    /// Shows a mod, with what a person does while the dialog is up.
    void show(const std::vector<std::string>& lines, std::function<void()> user) {
        world.files.put("C:\\a.ghm", fake::crlf(lines));
        ModEntry mod;
        ASSERT_TRUE(parseModFile(world.files, "C:\\a.ghm", mod));
        mods.setCurrentMod(mods.add(std::move(mod)));
        world.events.pending.push_back([this, user = std::move(user)] {
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
            user();
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        options.showFor("A");
        EXPECT_FALSE(dialog.isVisible());
    }

    fake::World world;
    RunState& run = world.run;
    ModTable mods;
    Edits edits;
    ModOptions options{world.ground, mods, edits};
    ModDialog dialog{options};
};

TEST_F(ModDialogTest, OneWhoTabsThroughSetsEveryOptionAndATypedLetterIsRefused) {
    show({"cvars 4", "checkbox a", "text A & b", "listbox b", "text A & b", "value 1", "listitems x|y", "number c",
          "text A & b", "value 40", "increment 5", "max 100", "textbox d", "text A & b"},
         [this] {
             // A screen reader ticks a box, then a person does it, and again.
             QAccessible::queryAccessibleInterface(dialog.focusWidget())
                 ->actionInterface()
                 ->doAction(QAccessibleActionInterface::toggleAction());
             EXPECT_EQ(mods.values().front(), "true");
             QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
             for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Up, Qt::Key_B}) {
                 QWidget* editor = dialog.focusWidget();
                 const QString name = QAccessible::queryAccessibleInterface(editor)->text(QAccessible::Name);
                 EXPECT_TRUE(name == "A & b" || key == Qt::Key_Down);  // a list is called by its label
                 QTest::keyClick(editor, key);
                 QTest::keyClick(editor, Qt::Key_Tab);
             }
             world.dialogs.answer("Number Required", Answer::Ok);
             QTest::keyClicks(dialog.findChild<QWidget*>("mtextbox(3)"), "z");
             EXPECT_EQ(dialog.focusWidget()->objectName(), "mtextbox(3)");
         });
    EXPECT_EQ(mods.values(), (std::vector<std::string>{"true", "1", "45", "b"}));
}

TEST_F(ModDialogTest, ALinkOpensPagesAndLettersOnly) {
    const std::pair<const char*, const char*> cases[] = {
        {"url www.a.org/b?c", "http://www.a.org/b?c"}, {"url https://a", "https://a"}, {"url file:///etc/passwd", ""}, {"url ftp://a/x", ""},
        {"email mailto:a@b", "mailto:a@b"}, {"email a@b?attach=/x", "mailto:a@b%3Fattach=/x"}};
    for (const auto& [line, opened] : cases)
        show({line}, [this, isWeb = line[0] == 'u', opened = opened] {
            const auto* link = dialog.findChild<QPushButton*>(isWeb ? "modurl" : "modemail");
            EXPECT_EQ(link->property("address").toUrl().toEncoded().toStdString(), opened);
            EXPECT_EQ(link->isEnabled(), *opened != '\0');
        });
}

}  // namespace
}  // namespace gatehouse
