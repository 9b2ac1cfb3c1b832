#pragma once

#include "base/form.h"
#include "window/rules/modes.h"

#include <QMainWindow>

class QAction;
class QKeySequence;
class QLabel;
class QStackedWidget;

namespace gatehouse {

class Gatehouse;

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
    QAction* makeAction(const QString& name, const QString& text, const QList<QKeySequence>& keys);
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
    /// Makes the view of a form when it is first wanted.
    void offerForm(Form& form);

    Gatehouse& program_;
    QAction* mfileopen_;
    QAction* mfilesave_;
    QAction* mfilerun_;
    QAction* mfileexit_;
    QAction* meditundo_;
    QAction* meditredo_;
    QAction* mtoolsconsole_;
    QAction* mtoolsresults_;
    QAction* mtoolsreset_;
    QAction* mtoolsoptions_;
    QAction* mhelpabout_;
    QLabel* clock_ = nullptr;
    QSize asked_;  ///< the size last asked for, in pixels
};

}  // namespace gatehouse
