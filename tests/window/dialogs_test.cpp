#include "window/widgets/qt_dialogs.h"

#include "base/runtime_failure.h"
#include "platform/qt/guarded_application.h"
#include "platform/scratch_folder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace gatehouse {
namespace {

using testing::ScratchFolder;

class DialogsTest : public ::testing::Test {
protected:
    /// Does something with the dialog on show as soon as there is one that has the keyboard.
    template <class Dialog>
    void whenShown(std::function<void(Dialog&)> action) {
        QTimer::singleShot(1, &receiver, [this, action = std::move(action)] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            if (dialog->isActiveWindow())
                action(*dialog);
            else
                whenShown(action);
        });
    }
    static void press(QWidget& widget, Qt::Key key) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QApplication::sendEvent(&widget, &event);
        }
    }
    static void type(QFileDialog& dialog, const QString& name) {
        auto* line = dialog.findChild<QLineEdit*>("fileNameEdit");
        EXPECT_TRUE(line->hasFocus());
        line->setText(name);
        press(*line, Qt::Key_Return);
    }

    ScratchFolder scratch;
    QObject receiver;
    QtDialogs dialogs{true};
    QtDialogs silent{false};
};

TEST_F(DialogsTest, ShowsABoxAsPlainTextAndTellsTheButton) {
    const struct {
        Buttons buttons;
        Qt::Key key;
        Answer answer;
    } cases[] = {
        {Buttons::Ok, Qt::Key_Escape, Answer::Ok},
        {Buttons::YesNo, Qt::Key_Escape, Answer::No},
        {Buttons::YesNo, Qt::Key_Return, Answer::Yes},
        {Buttons::YesNoCancel, Qt::Key_N, Answer::No},
        {Buttons::YesNoCancel, Qt::Key_Escape, Answer::Cancel},
    };
    for (const auto& c : cases) {
        whenShown<QMessageBox>([&c](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Run");
            EXPECT_EQ(box.text(), u"<b>one</b>\n“two” ü"_qs);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), QMessageBox::Question);
            if (c.key == Qt::Key_N)
                box.findChild<QAbstractButton*>("no")->click();
            else
                press(box, c.key);
        });
        const MessageBox box{"Run", "<b>one</b>\r\n\x93two\x94 \xFC", c.buttons, Icon::Question};
        EXPECT_EQ(dialogs.show(box), c.answer);
    }
}

TEST_F(DialogsTest, AFailureBehindABoxEndsIt) {
    QtEventLoop& events = static_cast<GuardedApplication<QApplication>*>(qApp)->events();
    QTimer::singleShot(0, &receiver, [] { throw RuntimeFailure("behind"); });
    EXPECT_EQ(dialogs.show({"Run", "text", Buttons::YesNo, Icon::None, Answer::No}), Answer::No);
    EXPECT_THROW(events.yield(), RuntimeFailure);
}

TEST_F(DialogsTest, WithoutADisplayBoxesArePrintedAndAnsweredSafely) {
    const struct {
        Buttons buttons;
        Answer safe, answer;
    } cases[] = {
        {Buttons::Ok, Answer::No, Answer::Ok},
        {Buttons::YesNo, Answer::Yes, Answer::Yes},
        {Buttons::YesNo, Answer::Cancel, Answer::No},
        {Buttons::YesNoCancel, Answer::Cancel, Answer::Cancel},
    };
    for (const auto& c : cases) {
        ::testing::internal::CaptureStderr();
        EXPECT_EQ(silent.show({"Run", "one\r\n\r\n\x1B[2Jtwo \xFC", c.buttons, Icon::None, c.safe}), c.answer);
        EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Run: one\nRun: [2Jtwo \xC3\xBC\n");
    }
}

TEST(DialogFilterTest, BecomesTheToolkits) {
    EXPECT_EQ(toolkitFilter("A (*.a)|*.a|B (*.b, *.c)|*.b;*.c"), "A (*.a);;B (*.b *.c);;All files (*)");
    EXPECT_EQ(toolkitFilter(""), "All files (*)");
}

TEST_F(DialogsTest, OpenTakesANameThatDoesNotExist) {
    scratch.put("Docs/here.ghc", "x");
    const FileDialog dialog{.title = "Load Config",
                            .filter = "Config (*.ghc)|*.ghc",
                            .startFolder = scratch.path("docs\\"),
                            .fileName = scratch.path("docs\\here.ghc")};
    for (const std::string name : {"here.ghc", "new.ghc"}) {
        whenShown<QFileDialog>([&name](QFileDialog& shownDialog) {
            EXPECT_EQ(shownDialog.windowTitle(), "Load Config");
            EXPECT_EQ(shownDialog.findChild<QLineEdit*>("fileNameEdit")->text(), "here.ghc");
            type(shownDialog, QString::fromStdString(name));
        });
        EXPECT_EQ(dialogs.openFile(dialog), scratch.path("Docs\\" + name));
    }
    whenShown<QFileDialog>([](QFileDialog& shownDialog) { shownDialog.reject(); });
    EXPECT_EQ(dialogs.openFile(dialog), std::nullopt);
    // The question about overwriting is the program's own.
    whenShown<QFileDialog>([](QFileDialog& shownDialog) {
        EXPECT_EQ(shownDialog.acceptMode(), QFileDialog::AcceptSave);
        type(shownDialog, "here.ghc");
    });
    EXPECT_EQ(dialogs.saveFile(dialog), scratch.path("Docs\\here.ghc"));
}

TEST_F(DialogsTest, NamesThatAreNoUtf8Survive) {
    scratch.put("j\xFCrgen/\xFC.ghc", "x");
    scratch.put("\xFC.ghc", "x");
    scratch.put("j\xC3\xBCrgen/x.ghc", "x");
    const struct {
        std::string folder, name, chosen;
    } cases[] = {
        {"", "\xFC.ghc", "\xFC.ghc"},
        {"j\xC3\xBCrgen\\", "x.ghc", "j\xC3\xBCrgen\\x.ghc"},
        {"j\xFCrgen\\", "\xFC.ghc", "\xFC.ghc"},  // such a folder can't be shown: the one above it is
    };
    for (const auto& c : cases) {
        whenShown<QFileDialog>([](QFileDialog& shownDialog) {
            press(*shownDialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
        });
        const FileDialog dialog{"", "", scratch.path(c.folder), scratch.path(c.folder + c.name)};
        EXPECT_EQ(dialogs.openFile(dialog), scratch.path(c.chosen));
    }
}

}  // namespace
}  // namespace gatehouse
