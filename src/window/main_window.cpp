#include "window/main_window.h"

#include "platform/qt/shown_text.h"
#include "startup/gatehouse.h"
#include "window/form_views.h"
#include "window/preview_window.h"
#include "window/tabs/benchmark_tab.h"
#include "window/tabs/settings_tabs.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/binders.h"
#include "window/widgets/console_panel.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/follow.h"
#include "window/widgets/icons.h"
#include "window/widgets/side_bar.h"
#include "window/widgets/table_view.h"
#include "window/widgets/twips.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTime>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <utility>

namespace gatehouse {

namespace {

constexpr int kToolIcon = 22;
constexpr int kGap = 8;
constexpr int kTitleBar = 36;  // room for what the window manager draws around a window
constexpr int kMillisecondsPerMinute = 60'000;

/// "Undo" with what it undoes.
void nameStep(QAction& action, const QString& command, const std::string& name) {
    action.setText((command + ' ' + shown(name).replace('&', "&&")).trimmed());
}

/// What a frame holds; nothing for a tab that is still to come.
QWidget* makeTabContent(Frame frame, Gatehouse& program) {
    SettingsDocument& doc = program.config.doc;
    switch (frame) {
        case kServerFrame:
            return makeServerTab(doc, program.rules.modOptions);
        case kServersFrame:
            return makeServersTab(program.servers.iplist, program.servers.commands, program.servers.query,
                                  program.flags);
        case kMapsFrame:
            return makeMapsTab(doc, program.content, program.rules.rotationRules, program.flags);
        case kPlayerFrame:
            return makePlayerTab(doc, program.rules.playerRules, program.content);
        case kKeysFrame:
            return makeKeysTab(doc, program.rules.keyRules);
        case kBotsFrame:
            return makeBotsTab(doc, program.rules.botsRules, program.flags);
        case kVideoFrame: return makeSettingsTab(doc.video);
        case kTweak1Frame: return makeSettingsTab(doc.tweak1);
        case kTweak2Frame: return makeSettingsTab(doc.tweak2);
        case kBenchmarkFrame:
            return makeBenchmarkTab(program);
        default: return nullptr;
    }
}

}  // namespace

MainWindow::MainWindow(Gatehouse& program) : program_(program) {
    setObjectName("q3");
    makeActions();
    makeMenus();
    makeToolBar();
    makeCentre();
    makeStatusBar();
    followProgram();
}

QAction* MainWindow::makeAction(const QString& name, const QString& text, const QList<QKeySequence>& keys) {
    auto* action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcuts(keys);
    return action;
}

void MainWindow::makeActions() {
    mfileopen_ = makeAction("mfileopen", tr("&Open..."), {QKeySequence(Qt::CTRL | Qt::Key_O)});
    mfileopen_->setIcon(icon("open"));
    mfileopen_->setToolTip(tr("Open a settings document (Ctrl+O)"));
    bindCommand(*mfileopen_, program_.flags.mfileopen, [this] { program_.mfileopen_Click(); });

    mfilesave_ = makeAction("mfilesave", tr("&Save..."), {QKeySequence(Qt::CTRL | Qt::Key_S)});
    mfilesave_->setIcon(icon("save"));
    mfilesave_->setToolTip(tr("Save the settings (Ctrl+S)"));
    bindCommand(*mfilesave_, [this] { program_.mfilesave_Click(); });

    mfilerun_ = makeAction("mfilerun", tr("&Run"), {QKeySequence(Qt::CTRL | Qt::Key_R), QKeySequence(Qt::Key_F5)});
    mfilerun_->setIcon(icon("run"));
    mfilerun_->setToolTip(tr("Start the game with these settings (Ctrl+R)"));
    bindCommand(*mfilerun_, program_.flags.mfilerun, [this] { program_.mfilerun_Click(); });

    mfileexit_ = makeAction("mfileexit", tr("E&xit"), {QKeySequence(Qt::CTRL | Qt::Key_Q)});
    mfileexit_->setMenuRole(QAction::QuitRole);
    bindCommand(*mfileexit_, [this] { program_.mfileexit_Click(); });

    EditHistory& history = program_.config.history;
    meditundo_ = makeAction("meditundo", {}, {QKeySequence(Qt::CTRL | Qt::Key_Z)});
    meditundo_->setIcon(icon("undo"));
    bindCommand(*meditundo_, history.canUndo, [this] { program_.meditundo_Click(); });
    follow(meditundo_, history.undoName, [this](const std::string& name) { nameStep(*meditundo_, tr("&Undo"), name); });

    meditredo_ = makeAction("meditredo", {},
                            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    meditredo_->setIcon(icon("redo"));
    bindCommand(*meditredo_, history.canRedo, [this] { program_.meditredo_Click(); });
    follow(meditredo_, history.redoName, [this](const std::string& name) { nameStep(*meditredo_, tr("&Redo"), name); });

    mtoolsconsole_ = makeAction("mtoolsconsole", tr("&Console"), {QKeySequence(Qt::Key_F12)});
    bindSwitch(*mtoolsconsole_, program_.run.ShowConsole, [this] { program_.mtoolsconsole_Click(); });

    mtoolsreset_ = makeAction("mtoolsreset", tr("&Reset Tabs..."), {});
    mtoolsreset_->setIcon(icon("reset"));
    mtoolsreset_->setToolTip(tr("Put the settings of this tab, or of all tabs, back to what they were at first"));
    bindCommand(*mtoolsreset_, program_.flags.mtoolsreset, [this] { program_.mtoolsreset_Click(); });

    mtoolsresults_ = makeAction("mtoolsresults", tr("&Benchmark Results..."), {});
    mtoolsresults_->setIcon(icon("results"));
    bindCommand(*mtoolsresults_, program_.flags.mtoolsresults, [this] { program_.mtoolsresults_Click(); });

    mtoolsoptions_ = makeAction("mtoolsoptions", tr("&Options..."), {});
    mtoolsoptions_->setIcon(icon("options"));
    mtoolsoptions_->setMenuRole(QAction::PreferencesRole);
    mtoolsoptions_->setToolTip(tr("Options of the program itself"));
    bindCommand(*mtoolsoptions_, [this] { program_.mtoolsoptions_Click(); });

    mhelpabout_ = makeAction("mhelpabout", tr("&About..."), {});
    mhelpabout_->setIcon(icon("about"));
    mhelpabout_->setMenuRole(QAction::AboutRole);
    bindCommand(*mhelpabout_, [this] { program_.mhelpabout_Click(); });
}

void MainWindow::makeMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addActions({mfileopen_, mfilesave_, mfilerun_});
    file->addSeparator();
    file->addAction(mfileexit_);
    menuBar()->addMenu(tr("&Edit"))->addActions({meditundo_, meditredo_});
    QMenu* tools = menuBar()->addMenu(tr("&Tools"));
    tools->addActions({mtoolsconsole_, mtoolsresults_});
    tools->addSeparator();
    tools->addActions({mtoolsreset_, mtoolsoptions_});
    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(mhelpabout_);
}

void MainWindow::makeToolBar() {
    auto* bar = new QToolBar(tr("Main Tool Bar"), this);
    bar->setObjectName("q3bar1");
    bar->setMovable(false);
    bar->setIconSize({kToolIcon, kToolIcon});
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);  // its menu would offer to hide the bar for good
    const auto addButton = [bar](QAction* action, const QString& key, const QString& text) {
        action->setIconText(text);
        bar->addAction(action);
        bar->widgetForAction(action)->setObjectName(key);
    };
    addButton(mfileopen_, "Open", tr("Open"));
    addButton(mfilesave_, "Save", tr("Save"));
    addButton(mfilerun_, "Run", tr("Run"));
    addButton(mtoolsreset_, "Reset", tr("Reset"));
    addButton(mtoolsoptions_, "Options", tr("Options"));
    addToolBar(bar);
    follow(bar, program_.flags.q3bar1, [bar](bool enabled) { bar->setEnabled(enabled); });
}

void MainWindow::makeCentre() {
    auto* sframe = new ElidedLabel(Qt::ElideRight, this);
    sframe->setObjectName("sframe");
    QFont heading = sframe->font();
    heading.setPointSizeF(heading.pointSizeF() * 1.35);
    heading.setBold(true);
    sframe->setFont(heading);
    follow(sframe, program_.rules.modes.frameCaption,
           [sframe](const std::string& text) { sframe->setText(shown(text)); });

    auto* tab = new QVBoxLayout;
    tab->setSpacing(kGap);
    tab->addWidget(sframe);
    tab->addWidget(makeFrames(), 1);

    auto* upper = new QHBoxLayout;
    upper->setSpacing(2 * kGap);
    auto* sbar = new SideBar(program_.rules.modes, program_.run, this);
    follow(sbar, program_.flags.sbar, [sbar](bool enabled) { sbar->setEnabled(enabled); });
    upper->addWidget(sbar);
    upper->addLayout(tab, 1);

    auto* centre = new QWidget(this);
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(kGap, kGap, kGap, kGap / 2);
    column->setSpacing(kGap);
    column->addLayout(upper, 1);
    column->addWidget(new ConsolePanel(program_.startup.q3.q3console, program_.run.ShowConsole, centre));
    setCentralWidget(centre);
}

QStackedWidget* MainWindow::makeFrames() {
    auto* frames = new QStackedWidget(this);
    frames->setObjectName("q3tabframes");
    for (int i = 0; i < kFrameCount; ++i) {
        const TabInfo& tab = tabInfo(static_cast<Frame>(i));
        auto* frame = new QFrame(frames);
        frame->setObjectName(shown(tab.key));
        frame->setAccessibleName(shown(tab.caption));
        frames->addWidget(frame);
    }
    follow(frames, program_.rules.modes.FrameShown, [this, frames](std::int16_t frame) {
        if (frame >= 0) fillFrame(*frames->widget(frame), static_cast<Frame>(frame));
        frames->setCurrentIndex(frame);
    });
    listen(frames, program_.rules.modes.focusWanted, [frames](Frame frame) {
        if (auto* table = frames->widget(frame)->findChild<TableView*>()) table->setFocus(Qt::OtherFocusReason);
    });
    return frames;
}

void MainWindow::fillFrame(QWidget& frame, Frame which) {
    if (frame.layout()) return;
    auto* inside = new QVBoxLayout(&frame);
    inside->setContentsMargins({});
    if (QWidget* content = makeTabContent(which, program_)) inside->addWidget(content);
}

void MainWindow::makeStatusBar() {
    statusBar()->setObjectName("q3status");
    auto* message = new ElidedLabel(Qt::ElideRight, this);
    message->setObjectName("q3status1");
    message->setContentsMargins(kGap / 2, 0, 0, 0);
    statusBar()->addWidget(message, 1);
    follow(message, program_.startup.q3.q3status,
           [message](const std::string& text) { message->setText(shown(text)); });

    addStatusNote("askingAgain", tr("Asking again and again. Esc in the list ends it."),
                  program_.servers.query.askingAgain);
    addStatusNote("benchmarkStopped", tr("Stopped. Press Play: when a run has ended, all can be used again."),
                  program_.benchmark.run.stopped);

    clock_ = new QLabel(this);
    clock_->setObjectName("q3status2");
    clock_->setTextFormat(Qt::PlainText);
    statusBar()->addPermanentWidget(clock_);
    showClock();
}

void MainWindow::addStatusNote(const QString& name, const QString& text, Observable<bool>& shownNow) {
    auto* note = new QLabel(text, this);
    note->setObjectName(name);
    statusBar()->addPermanentWidget(note);
    follow(note, shownNow, [note](bool on) { note->setVisible(on); });
}

void MainWindow::showClock() {
    const QTime now = QTime::currentTime();
    clock_->setText(now.toString("HH:mm"));
    const int sinceMinute = now.msecsSinceStartOfDay() % kMillisecondsPerMinute;
    QTimer::singleShot(kMillisecondsPerMinute - sinceMinute, Qt::PreciseTimer, this, &MainWindow::showClock);
}

void MainWindow::offerForm(Form& form) {
    listen(this, form.changed, [this, &form, made = false]() mutable {
        if (form.get() && !std::exchange(made, true)) makeFormView(form.name, program_, this);
    });
}

void MainWindow::followProgram() {
    follow(this, program_.run.title, [this](const std::string& title) { setWindowTitle(shownTitle(title)); });
    for (Form* form : program_.forms()) offerForm(*form);
    Preview& preview = program_.content.preview;
    listen(this, preview.q3levelshot.changed, [this, &preview, made = false]() mutable {
        if (preview.q3levelshot.get() && !std::exchange(made, true)) new PreviewWindow(preview, this);
    });
    follow(this, program_.run.hourglass, [this](bool on) { on ? setCursor(Qt::WaitCursor) : unsetCursor(); });
    MainView& view = program_.startup.q3;
    const auto size = [this, &view] { resizeTo(view.width.get(), view.height.get()); };
    size();
    listen(this, view.width.changed, size);
    listen(this, view.height.changed, size);
    follow(this, view.visible, [this](bool visible) {
        setVisible(visible);
        if (visible) program_.q3_Activate();
    });
}

void MainWindow::resizeTo(int widthTwips, int heightTwips) {
    const QSize wanted(pixels(widthTwips), pixels(heightTwips));
    // What a person has added to the window stays added.
    const QSize added = asked_.isValid() ? (size() - asked_).expandedTo({0, 0}) : QSize(0, 0);
    asked_ = wanted;
    if (isMaximized() || isFullScreen()) return;
    const QRect room = screen()->availableGeometry();
    resize((wanted + added).boundedTo(room.size() - QSize(0, kTitleBar)));
    if (!isVisible()) return;
    // A window that has grown must not hide its status bar below the edge of the screen.
    const int below = frameGeometry().bottom() - room.bottom();
    if (below > 0) move(x(), qMax(room.top(), y() - below));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!program_.startup.q3.visible.get()) return;  // it has unloaded already
    // The program hides the window when it has unloaded; a window never goes inside its own event.
    event->ignore();
    leaveTypedText();
    program_.q3_Unload();
}

}  // namespace gatehouse
