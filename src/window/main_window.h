#pragma once

#include "base/form.h"
#include "window/rules/modes.h"

#include <QMainWindow>

#include <functional>
#include <string>
#include <string_view>

class QAction;
class QLabel;
class QStackedWidget;

namespace gatehouse {

class Gatehouse;
struct CommandInfo;

/// The main window `q3`. It shows what the program holds and hands on what a person does; it decides nothing. Hidden
/// and never destroyed before the program ends.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// The program must outlive the window.
    explicit MainWindow(Gatehouse& program);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    /// The action of a declared command; with a flag, it can be used while that holds.
    QAction* makeAction(std::string_view name, std::function<void()> command, Observable<bool>* flag = nullptr);
    QAction* actionOf(const CommandInfo& command) const;
    void makeActions();
    void makeMenus();
    void makeToolBar();
    void makeCentre();
    QStackedWidget* makeFrames();
    /// Makes what a tab holds when it is first shown: the window is there sooner.
    void fillFrame(QWidget& frame, Frame which);
    void makeStatusBar();
    /// A note at the right of the status bar, to be seen while the value holds.
    void addStatusNote(const QString& name, const QString& text, Observable<bool>& shownNow);
    void followProgram();
    void resizeTo(int widthTwips, int heightTwips);
    void showClock();
    /// Gives a control the keyboard, or shows the menu that a command is in.
    void showControl(const std::string& name);
    void showAction(QAction& action);
    /// Makes the view of a form when it is first wanted.
    void offerForm(Form& form);

    Gatehouse& program_;
    QLabel* clock_ = nullptr;
    QSize asked_;  ///< the size last asked for, in pixels
};

}  // namespace gatehouse
