#include "support/core/started_program.h"
#include "window/help_desk.h"
#include "window/help_window.h"
#include "window/main_window.h"
#include "window/rules/commands.h"
#include "window/widgets/help_view.h"
#include "window/widgets/table_view.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHelpEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTextBlock>
#include <QWhatsThis>
#include <QWindow>

#include <gtest/gtest.h>

#include <algorithm>

namespace gatehouse {
namespace {

class HelpWindowsTest : public testing::Test {
protected:
    HelpWindowsTest() { program.StartupDriver(); }

    HelpWindow* helpWindow() const {
        for (QWidget* one : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<HelpWindow*>(one)) return found;
        return nullptr;
    }

    /// Controls that the help tells of only with what they stand in, or not at all.
    std::string untold(const QWidget& where) const {
        QStringList names;
        for (const QWidget* one : where.findChildren<QWidget*>()) {
            const bool control = qobject_cast<const QAbstractButton*>(one) || qobject_cast<const QLineEdit*>(one) ||
                                 qobject_cast<const QComboBox*>(one) || qobject_cast<const QAbstractSlider*>(one) ||
                                 qobject_cast<const TableView*>(one);
            if (!control || one->focusPolicy() == Qt::NoFocus || one->objectName().startsWith("qt_")) continue;
            const auto place = help.book.placeOf(desk.topicOf(one));
            const bool own = place && !place->anchor.empty() && place->anchor != where.objectName().toStdString();
            if (!own) names += one->objectName();
        }
        return names.join(' ').toStdString();
    }

    fake::UsedWorld world;
    Gatehouse program{world.services, "C:\\gh"};
    HelpRules& help = program.rules.help;
    HelpDesk desk{program.rules.help};
    MainWindow window{program};
};

TEST_F(HelpWindowsTest, EveryControlIsToldOf) {
    for (std::int16_t mode = 1; mode <= 4; ++mode) {
        program.rules.modes.sbar_GroupClick(mode);
        for (std::size_t tab = 1; tab <= modes()[static_cast<std::size_t>(mode - 1)].tabs.size(); ++tab)
            program.rules.modes.sbar_ListItemClick(static_cast<std::int16_t>(tab));
    }
    EXPECT_EQ(untold(window), "");
    for (Form* form : program.forms()) {
        form->set(true);
        if (const auto* dialog =
                window.findChild<QDialog*>(QString::fromUtf8(form->name.data(), qsizetype(form->name.size())))) {
            EXPECT_EQ(desk.topicOf(dialog), form->name);
            // On the keyboard each key stands for itself.
            if (form->name != "q3keyboard") {
                EXPECT_EQ(untold(*dialog), "") << form->name;
            }
        }
        form->set(false);
    }
}

TEST_F(HelpWindowsTest, F1TellsOfTheControlAndTheLinkLeadsBack) {
    program.rules.modes.sbar_GroupClick(kListen);
    auto* box = window.findChild<QWidget*>("q3allowvote");
    box->setFocus();
    QTest::keyClick(box, Qt::Key_F1);
    ASSERT_TRUE(helpWindow() && helpWindow()->isVisible());
    auto* view = helpWindow()->findChild<HelpView*>();
    EXPECT_TRUE(view->textCursor().block().text().startsWith("Voting Lets the players"));
    EXPECT_EQ(view->textCursor().selectedText(), "Voting");
    QTest::keyClick(view, Qt::Key_Tab);
    EXPECT_EQ(view->textCursor().selectedText(), "Show it");
    program.rules.modes.sbar_ListItemClick(3);
    QTest::keyClick(view, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(program.rules.modes.TabKey.get(), "server");
    EXPECT_EQ(window.focusWidget(), box);

    // A dialog holds up every window but the help that was asked for in it.
    program.mtoolsoptions_Click();
    auto* dialog = window.findChild<QDialog*>("q3options");
    QTest::keyClick(dialog->findChild<QWidget*>("q3pingwait"), Qt::Key_F1);
    EXPECT_EQ(help.window.viewer.place.get().anchor, "q3pingwait");
    EXPECT_EQ(helpWindow()->windowHandle()->transientParent(), dialog->windowHandle());
    program.rules.optionsRules.optionsOK_Click();
    QTest::keyClick(helpWindow(), Qt::Key_Escape);
    EXPECT_FALSE(help.window.shown.get() || helpWindow()->isVisible());
}

TEST_F(HelpWindowsTest, WhatsThisTellsOfWhatIsClicked) {
    program.rules.modes.sbar_GroupClick(kListen);
    auto* caption = window.findChild<QWidget*>("q3allowvote");
    QEvent query(QEvent::QueryWhatsThis);
    QCoreApplication::sendEvent(caption, &query);
    EXPECT_TRUE(query.isAccepted());
    QHelpEvent event(QEvent::WhatsThis, {}, {});
    QCoreApplication::sendEvent(caption, &event);
    const auto open = QApplication::topLevelWidgets();
    EXPECT_TRUE(std::any_of(open.begin(), open.end(), [](const QWidget* one) {
        return one->isVisible() && one->windowType() == Qt::Popup;
    }));
    EXPECT_TRUE(help.book.paragraphOf("q3allowvote").starts_with("<b>Voting</b> Lets the players"));
    EXPECT_EQ(help.book.paragraphOf("q3allowvote").find("<a "), std::string::npos);
    QWhatsThis::hideText();
}

TEST_F(HelpWindowsTest, TheSearchListsParagraphsAndGoesToThem) {
    program.mhelpcontents_Click();
    auto* hits = helpWindow()->findChild<QListWidget*>();
    auto* line = helpWindow()->findChild<QLineEdit*>("helpsearch");
    QTest::keyClicks(line, "turkeys");
    ASSERT_EQ(hits->count(), 1);
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(help.window.viewer.place.get().anchor, "sv_maxping");
    line->setText("no such word here");
    ASSERT_EQ(hits->count(), 1);
    EXPECT_EQ(hits->item(0)->flags(), Qt::NoItemFlags);
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(help.window.viewer.place.get().anchor, "sv_maxping");
}

}  // namespace
}  // namespace gatehouse
