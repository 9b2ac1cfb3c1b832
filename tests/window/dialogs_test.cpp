#include "window/widgets/qt_dialogs.h"

#include "base/runtime_failure.h"
#include "platform/qt/guarded_application.h"
#include "platform/scratch_folder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

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
        bool noLoses = false;
    } cases[] = {
        {Buttons::Ok, Qt::Key_Escape, Answer::Ok},       {Buttons::YesNo, Qt::Key_Escape, Answer::No},
        {Buttons::YesNo, Qt::Key_Return, Answer::Yes},   {Buttons::YesNoCancel, Qt::Key_Escape, Answer::Cancel},
        {Buttons::YesNoCancel, Qt::Key_N, Answer::No},   {Buttons::YesNo, Qt::Key_N, Answer::No, true},
        {Buttons::YesNo, Qt::Key_Return, Answer::Yes, true},
    };
    for (const auto& c : cases) {
        whenShown<QMessageBox>([&c](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Run");
            EXPECT_EQ(box.text(), u"<b>one</b>\n“two” ü"_qs);
            EXPECT_TRUE(box.textFormat() == Qt::PlainText && box.icon() == QMessageBox::Question);
            if (c.noLoses) {  // it must be pressed
                press(box, Qt::Key_Escape);
                box.close();
                EXPECT_TRUE(box.isVisible());
            }
            if (c.key == Qt::Key_N)
                box.findChild<QAbstractButton*>("no")->click();
            else
                press(box, c.key);
        });
        EXPECT_EQ(dialogs.show({.title = "Run",
                                .text = "<b>one</b>\r\n\x93two\x94 \xFC",
                                .buttons = c.buttons,
                                .icon = Icon::Question,
                                .noLoses = c.noLoses}),
                  c.answer);
    }
    // A failure behind a box ends it, even one that only its buttons end.
    QtEventLoop& events = static_cast<GuardedApplication<QApplication>*>(qApp)->events();
    for (const bool noLoses : {false, true}) {
        QTimer::singleShot(0, &receiver, [] { throw RuntimeFailure("behind"); });
        EXPECT_EQ(dialogs.show({"Run", "text", Buttons::YesNo, Icon::None, Answer::No, noLoses}), Answer::No);
        EXPECT_THROW(events.yield(), RuntimeFailure);
    }
}

TEST_F(DialogsTest, AFurtherButtonHasAnAnswerOfItsOwn) {
    const MessageBox box{.title = "Run", .text = "?", .buttons = Buttons::YesNo, .other = "&Compare..."};
    for (const auto& [name, answer] : {std::pair("other", Answer::Other), {"no", Answer::No}}) {
        whenShown<QMessageBox>([name = name](QMessageBox& shownBox) {
            shownBox.findChild<QAbstractButton*>(name)->click();
        });
        EXPECT_EQ(dialogs.show(box), answer) << name;
    }
}

TEST_F(DialogsTest, WithoutADisplayBoxesArePrintedAndAnsweredSafely) {
    for (const auto& [buttons, safe, answer] : {std::tuple(Buttons::Ok, Answer::No, Answer::Ok),
                                                {Buttons::YesNo, Answer::Yes, Answer::Yes},
                                                {Buttons::YesNo, Answer::Cancel, Answer::No},
                                                {Buttons::YesNoCancel, Answer::Cancel, Answer::Cancel}}) {
        ::testing::internal::CaptureStderr();
        EXPECT_EQ(silent.show({"Run", "one\r\n\r\n\x1B[2Jtwo \xFC", buttons, Icon::None, safe}), answer);
        EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Run: one\nRun: [2Jtwo \xC3\xBC\n");
    }
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
            const auto* line = shownDialog.findChild<QLineEdit*>("fileNameEdit");
            EXPECT_TRUE(line->hasFocus() && line->text() == "here.ghc");
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

TEST_F(DialogsTest, ASaveGetsItsEndingAndAFolderThatIsThere) {
    scratch.put("Docs/old.txt", "x");
    const FileDialog dialog{.title = "Save Config",
                            .filter = "Config (*.ghc)|*.ghc",
                            .startFolder = scratch.path("docs\\"),
                            .fileName = scratch.path("docs\\old.txt")};
    constexpr const char* kOwn = "Config (*.ghc)";
    for (const auto& [typed, filter, chosen] :
         {std::tuple("new", kOwn, "new.ghc"), {"v1.2", kOwn, "v1.2.ghc"}, {"NEW.GHC", kOwn, "NEW.GHC"},
          {"new", "All files (*)", "new"}, {"old.txt", kOwn, "old.txt"}, {"new.txt", kOwn, "new.txt.ghc"}}) {
        whenShown<QFileDialog>([&, typed = typed, filter = filter](QFileDialog& box) {
            box.selectNameFilter(filter);
            whenShown<QMessageBox>([](QMessageBox& refusal) {
                EXPECT_TRUE(refusal.text().contains("nowhere"));
                press(refusal, Qt::Key_Return);
            });
            type(box, QString("nowhere/") + typed);
            EXPECT_TRUE(box.isVisible());
            type(box, typed);
        });
        EXPECT_EQ(dialogs.saveFile(dialog), scratch.path("Docs\\" + std::string(chosen)));
    }
}

TEST_F(DialogsTest, AnImportMustBeThereAndAFolderComesWithItsBackslash) {
    scratch.put("Docs/list.txt", "x");
    const FileDialog dialog{"Open", "", scratch.path("docs\\"), "", "txt"};
    whenShown<QFileDialog>([&](QFileDialog& box) {
        whenShown<QMessageBox>([](QMessageBox& refusal) { press(refusal, Qt::Key_Return); });
        type(box, "none.TXT");
        EXPECT_TRUE(box.isVisible());
        type(box, "list.txt");
    });
    EXPECT_EQ(dialogs.openFile(dialog), scratch.path("Docs\\list.txt"));
    whenShown<QFileDialog>([](QFileDialog& box) { box.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click(); });
    EXPECT_EQ(dialogs.chooseFolder("Folder", scratch.path("docs")), scratch.path("Docs\\"));
    EXPECT_EQ(silent.chooseFolder("Folder", ""), std::nullopt);
}

TEST_F(DialogsTest, NamesThatAreNoUtf8Survive) {
    scratch.put("j\xFCrgen/\xFC.ghc", "x");
    scratch.put("\xFC.ghc", "x");
    scratch.put("j\xC3\xBCrgen/x.ghc", "x");
    // A folder that isn't in UTF-8 can't be shown: the one above it is.
    using Text = std::string;
    for (const auto& [folder, name, chosen] :
         {std::tuple<Text, Text, Text>("", "\xFC.ghc", "\xFC.ghc"), {"j\xC3\xBCrgen\\", "x.ghc", "j\xC3\xBCrgen\\x.ghc"},
          {"j\xFCrgen\\", "\xFC.ghc", "\xFC.ghc"}}) {
        whenShown<QFileDialog>([](QFileDialog& shownDialog) {
            press(*shownDialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
        });
        EXPECT_EQ(dialogs.openFile({"", "", scratch.path(folder), scratch.path(folder + name)}), scratch.path(chosen));
    }
}

}  // namespace
}  // namespace gatehouse
