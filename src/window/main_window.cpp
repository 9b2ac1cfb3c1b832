#include "window/main_window.h"

#include "platform/qt/shown_text.h"
#include "startup/gatehouse.h"
#include "window/form_views.h"
#include "window/preview_window.h"
#include "window/rules/commands.h"
#include "window/tabs/benchmark_tab.h"
#include "window/tabs/help_tab.h"
#include "window/tabs/settings_tabs.h"
#include "window/tabs/table_tabs.h"
#include "window/widgets/binders.h"
#include "window/widgets/command_views.h"
#include "window/widgets/console_panel.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/follow.h"
#include "window/widgets/icons.h"
#include "window/widgets/side_bar.h"
#include "window/widgets/table_view.h"
#include "window/widgets/twips.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTime>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QWhatsThis>

#include <algorithm>
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

/// What a frame holds.
QWidget* makeTabContent(Frame frame, Gatehouse& program) {
    SettingsDocument& doc = program.config.doc;
    switch (frame) {
        case kServerFrame:
            return makeServerTab(doc, program.rules.modOptions);
        case kServersFrame:
            return makeServersTab(program.servers, program.flags);
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
        case kHelpFrame:
            return makeHelpTab(program.rules.hwin, program.rules.help);
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

QAction* MainWindow::makeAction(std::string_view name, std::function<void()> command, Observable<bool>* flag) {
    auto* action = new QAction(this);
    describe(*action, commandInfo(name));
    flag ? bindCommand(*action, *flag, std::move(command)) : bindCommand(*action, std::move(command));
    return action;
}

void MainWindow::makeActions() {
    CommandFlags& flags = program_.flags;
    makeAction(
        "mfileopen", [this] { program_.mfileopen_Click(); }, &flags.mfileopen);
    makeAction("mfilesave", [this] { program_.mfilesave_Click(); });
    makeAction(
        "mfilerun", [this] { program_.mfilerun_Click(); }, &flags.mfilerun);
    makeAction("mfileexit", [this] { program_.mfileexit_Click(); })->setMenuRole(QAction::QuitRole);

    EditHistory& history = program_.config.history;
    QAction* undo = makeAction(
        "meditundo", [this] { program_.meditundo_Click(); }, &history.canUndo);
    follow(undo, history.undoName, [undo](const std::string& name) { nameStep(*undo, tr("&Undo"), name); });
    QAction* redo = makeAction(
        "meditredo", [this] { program_.meditredo_Click(); }, &history.canRedo);
    follow(redo, history.redoName, [redo](const std::string& name) { nameStep(*redo, tr("&Redo"), name); });

    ServersRoom& servers = program_.servers;
    makeAction(
        "mserversrefresh", [&servers] { servers.desk.refreshAll(); }, &servers.desk.hasRows);
    makeAction(
        "mserversselected", [&servers] { servers.desk.refreshSelected(); }, &servers.desk.hasSelected);
    makeAction(
        "mserversstop", [&servers] { servers.desk.stop(); }, &servers.refresh.running);
    makeAction("mserversfind", [&servers] { servers.search.findServers(); });

    auto* console = new QAction(this);
    describe(*console, commandInfo("mtoolsconsole"));
    bindSwitch(*console, program_.run.ShowConsole, [this] { program_.mtoolsconsole_Click(); });
    makeAction(
        "mtoolsresults", [this] { program_.mtoolsresults_Click(); }, &flags.mtoolsresults);
    makeAction(
        "mtoolsreset", [this] { program_.mtoolsreset_Click(); }, &flags.mtoolsreset);
    makeAction("mtoolsoptions", [this] { program_.mtoolsoptions_Click(); })->setMenuRole(QAction::PreferencesRole);

    makeAction("mhelpcontents", [this] { program_.mhelpcontents_Click(); });
    makeAction("mhelpwhat", [] { QWhatsThis::enterWhatsThisMode(); });
    makeAction("mhelpover", [this] { program_.mhelpover_Click(); });
    makeAction("mhelpabout", [this] { program_.mhelpabout_Click(); })->setMenuRole(QAction::AboutRole);
}

QAction* MainWindow::actionOf(const CommandInfo& command) const {
    return findChild<QAction*>(shown(command.objectName()), Qt::FindDirectChildrenOnly);
}

void MainWindow::makeMenus() {
    // A line parts these from those above them.
    constexpr std::string_view kAfterLine[] = {"mfileexit", "mtoolsreset", "mhelpabout"};
    for (const std::string_view name : kMenus) {
        QMenu* menu = menuBar()->addMenu('&' + shown(name));
        menu->setObjectName(shown(name));
        menu->setToolTipsVisible(true);
        for (const CommandInfo& command : commands()) {
            if (command.place != name) continue;
            if (std::find(std::begin(kAfterLine), std::end(kAfterLine), command.name) != std::end(kAfterLine))
                menu->addSeparator();
            menu->addAction(actionOf(command));
        }
    }
}

void MainWindow::makeToolBar() {
    auto* bar = new QToolBar(tr("Main Tool Bar"), this);
    bar->setObjectName("q3bar1");
    bar->setMovable(false);
    bar->setIconSize({kToolIcon, kToolIcon});
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);  // its menu would offer to hide the bar for good
    for (const CommandInfo& command : commands()) {
        if (command.button.empty()) continue;
        QAction* action = actionOf(command);
        action->setIconText(shown(command.button));
        bar->addAction(action);
        bar->widgetForAction(action)->setObjectName(shown(command.button));
    }
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
    ModeRules& modes = program_.rules.modes;
    const auto show = [this, frames, &modes] {
        const std::int16_t frame = modes.overviewShown.get() ? std::int16_t{kHelpFrame} : modes.FrameShown.get();
        if (frame >= 0) fillFrame(*frames->widget(frame), static_cast<Frame>(frame));
        frames->setCurrentIndex(frame);
    };
    show();
    listen(frames, modes.FrameShown.changed, show);
    listen(frames, modes.overviewShown.changed, show);
    listen(frames, modes.focusWanted, [frames](Frame frame) {
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

void MainWindow::showControl(const std::string& name) {
    QWidget* front = QApplication::activeModalWidget();
    if (!front) front = this;
    front->activateWindow();
    QString object = shown(name);
    for (const CommandInfo& command : commands())
        if (command.name == name) object = shown(command.objectName());
    if (auto* control = front->findChild<QWidget*>(object)) {
        control->setFocus(Qt::ShortcutFocusReason);
        for (QWidget* above = control->parentWidget(); above; above = above->parentWidget())
            if (auto* room = qobject_cast<QScrollArea*>(above)) room->ensureWidgetVisible(control);
        return;
    }
    for (QAction* action : front->findChildren<QAction*>(object)) showAction(*action);
}

void MainWindow::showAction(QAction& action) {
    QMenu* menu = nullptr;
    for (QObject* where : action.associatedObjects()) {
        auto* button = qobject_cast<QToolButton*>(where);
        if (button && button->isVisible()) return button->setFocus(Qt::ShortcutFocusReason);
        if (auto* one = qobject_cast<QMenu*>(where)) menu = one;
    }
    if (!menu) return;
    menuBar()->setActiveAction(menu->menuAction());
    menu->setActiveAction(&action);
}

void MainWindow::followProgram() {
    HelpRules& help = program_.rules.help;
    listen(this, help.commandWanted, [this](const std::string& name) { actionOf(commandInfo(name))->trigger(); });
    // Once what it stands in has come up.
    listen(this, help.controlWanted,
           [this](const std::string& name) { QTimer::singleShot(0, this, [this, name] { showControl(name); }); });
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
