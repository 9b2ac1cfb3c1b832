#include "window/tabs/benchmark_tab.h"

#include "startup/gatehouse.h"
#include "window/rules/commands.h"
#include "window/widgets/binders.h"
#include "window/widgets/command_views.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/field_grid.h"
#include "window/widgets/follow.h"
#include "window/widgets/spin_text.h"
#include "window/widgets/table_view.h"
#include "window/widgets/wheel_guard.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolBar>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kGap = 8;
constexpr int kNumberLetters = 8;

struct RunButton {
    std::string_view name;
    Observable<bool>& flag;
    std::function<void()> command;
};

QToolBar* makeButtons(Gatehouse& program) {
    auto* bar = new QToolBar(QObject::tr("Benchmark"));
    bar->setObjectName("btbar");
    bar->setAccessibleName(bar->windowTitle());
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    BenchmarkRun& run = program.benchmark.run;
    auto& flags = program.flags.btbar;
    const RunButton buttons[] = {
        {"play", flags[1], [&program] { program.mfilerun_Click(); }},
        {"pause", flags[2], [&run] { run.pause_Click(); }},
        {"stop", flags[3], [&run] { run.stop_Click(); }},
    };
    for (const RunButton& one : buttons) {
        auto* action = new QAction(bar);
        describe(*action, commandInfo(one.name));
        bar->addAction(action);
        bindCommand(*action, one.flag, one.command);
        QWidget* button = bar->widgetForAction(action);
        button->setObjectName(action->objectName() + "_button");
        button->setFocusPolicy(Qt::TabFocus);
    }
    return bar;
}

QWidget* makeList(BenchmarkList& list, LabelField& folder, BenchmarkSetup& setup, const QString& name,
                  const QString& title, const QString& empty) {
    auto* view =
        new TableView(new TableModel(list, TableLook<BenchmarkEntry>{.columns = {{"Name", &BenchmarkEntry::name}}}),
                      QAbstractItemView::ExtendedSelection);
    view->setObjectName(name);
    view->setAccessibleName(title);
    view->setRootIsDecorated(false);
    view->setHeaderHidden(true);
    view->setUniformRowHeights(true);
    view->setEmptyText(empty);
    view->setToolTip(QObject::tr("Ctrl and Shift choose several, Ctrl+A all of them."));
    follow(view, setup.choosing, [view](bool enabled) { view->setEnabled(enabled); });

    auto* heading = new QLabel(title);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    heading->setBuddy(view);
    auto* place = new ElidedLabel(Qt::ElideMiddle);
    place->setObjectName(shown(folder.spec().name));
    follow(place, folder.visible, [place](bool visible) { place->setVisible(visible); });
    const auto showFolder = [place, &folder] { place->setText(shown(folder.text())); };
    showFolder();
    listen(place, folder.changed, showFolder);

    auto* pane = new QWidget;
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins({});
    column->addWidget(heading);
    column->addWidget(place);
    column->addWidget(view, 1);
    return pane;
}

QWidget* makeNumber(TextField& field, Typed typed) {
    auto* spin = new SpinText;
    bind(*spin, field, typed);
    guardFromWheel(*spin);
    spin->setFixedWidth(kNumberLetters * spin->fontMetrics().averageCharWidth() + spin->sizeHint().height() * 2);
    return spin;
}

QWidget* makeSettings(OptionsForm& options) {
    auto* stale = new QComboBox;
    bind(*stale, options.q3staleaction);
    guardFromWheel(*stale);
    auto* settings = new QWidget;
    auto* row = new QHBoxLayout(settings);
    row->setContentsMargins({});
    row->setSpacing(kGap);
    const auto add = [row](QWidget* editor, Field& field) {
        auto* caption = new QLabel;
        bindCaption(*caption, *editor, field);
        row->addWidget(caption);
        row->addWidget(editor);
        row->addSpacing(kGap);
    };
    add(makeNumber(options.democount, Typed::Number), options.democount);
    add(makeNumber(options.q3bwait, Typed::Decimal), options.q3bwait);
    add(stale, options.q3staleaction);
    row->addStretch(1);
    return settings;
}

QWidget* makeProgress(BenchmarkRun& run) {
    auto* line = new ElidedLabel(Qt::ElideMiddle);
    line->setObjectName("benchprogress");
    follow(line, run.progress, [line](const std::string& text) {
        line->setText(shown(text));
        line->setVisible(!text.empty());
    });
    return line;
}

}  // namespace

QWidget* makeBenchmarkTab(Gatehouse& program) {
    BenchmarkSetup& setup = program.benchmark.setup;
    auto* tab = new QWidget;
    auto* lists = new QHBoxLayout;
    lists->setSpacing(kGap);
    lists->addWidget(makeList(setup.configlist, setup.cfglabel, setup, "configlist", QObject::tr("Documents"),
                              QObject::tr("There are no documents in this folder.")),
                     1);
    lists->addWidget(makeList(setup.demolist, setup.demolabel, setup, "demolist", QObject::tr("Demos"), {}), 1);
    auto* column = new QVBoxLayout(tab);
    column->setContentsMargins({});
    column->setSpacing(kGap);
    column->addWidget(makeButtons(program));
    column->addWidget(makeProgress(program.benchmark.run));
    column->addLayout(lists, 1);
    column->addWidget(makeSettings(program.startup.options));
    return tab;
}

}  // namespace gatehouse
