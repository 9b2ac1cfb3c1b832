#include "window/dialogs/results_dialog.h"

#include "benchmark/results_form.h"
#include "platform/qt/shown_text.h"
#include "window/rules/commands.h"
#include "window/widgets/binders.h"
#include "window/widgets/chart_view.h"
#include "window/widgets/command_views.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/follow.h"
#include "window/widgets/table_view.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include <utility>

namespace gatehouse {

namespace {

constexpr int kGap = 12;
constexpr int kLetters = 130;
constexpr int kLines = 44;
constexpr int kNameLetters = 22;
constexpr int kDemoLetters = 14;
constexpr int kFigureLetters = 11;

std::string figureOr(const ResultRow& row, const std::optional<double>& value) {
    return row.summary.n > 0 && value ? figureText(*value) : std::string();
}

/// What the other columns don't say of a row.
std::string remarks(const ResultRow& row) {
    int lost = 0;
    int far = 0;
    for (std::size_t i = 0; i < row.iterations.size(); ++i) {
        lost += row.iterations[i].outcome != Outcome::Good;
        far += row.outlier[i];
    }
    std::string text;
    const auto add = [&text](const std::string& part) { text += (text.empty() ? "" : "; ") + part; };
    if (row.slowFirst) add("slower at first (cold disk?)");
    if (far > 0) add(std::to_string(far) + " far from the others");
    if (lost > 0) add(std::to_string(lost) + " without a figure");
    return text;
}

TableView* makeTable(Table<ResultRow>& figures) {
    using Row = ResultRow;
    auto* view = new TableView(new TableModel(
        figures,
        TableLook<Row>{.columns = {{"Document", &Row::configurationLabel},
                                   {"Demo", &Row::demo},
                                   {"n", [](const Row& row) { return std::to_string(row.summary.n); }},
                                   {"Median", [](const Row& row) { return figureOr(row, row.summary.median); }},
                                   {"Mean", [](const Row& row) { return figureOr(row, row.summary.mean); }},
                                   {"Deviation", [](const Row& row) { return figureOr(row, row.summary.deviation); }},
                                   {"Minimum", [](const Row& row) { return figureOr(row, row.summary.minimum); }},
                                   {"Maximum", [](const Row& row) { return figureOr(row, row.summary.maximum); }},
                                   {"Remarks", remarks}}}));
    view->setObjectName("figures");
    view->setAccessibleName(QObject::tr("Figures"));
    view->setRootIsDecorated(false);
    view->setUniformRowHeights(true);
    view->setColumnLetters({kNameLetters, kDemoLetters, kFigureLetters / 2, kFigureLetters, kFigureLetters,
                            kFigureLetters, kFigureLetters, kFigureLetters});
    view->setEmptyText(QObject::tr("There are no figures."));
    return view;
}

TableView* makeDifferences(Table<SettingDifference>& differences) {
    using Row = SettingDifference;
    auto* view = new TableView(new TableModel(
        differences,
        TableLook<Row>{.columns = {{"Setting", &Row::variable}, {"First", &Row::first}, {"Second", &Row::second}}}));
    view->setObjectName("differences");
    view->setAccessibleName(QObject::tr("Settings that differ"));
    view->setRootIsDecorated(false);
    view->setUniformRowHeights(true);
    view->setColumnLetters({kNameLetters, kFigureLetters});
    view->setEmptyText(QObject::tr("No setting differs."));
    return view;
}

QLabel* makeText(const QString& name, Observable<std::string>& text) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    follow(label, text, [label](const std::string& now) {
        label->setText(shown(now));
        label->setVisible(!now.empty());
    });
    return label;
}

/// As many lines as there are demos, to be scrolled and copied.
QPlainTextEdit* makeVerdict(Observable<std::string>& verdict) {
    auto* text = new QPlainTextEdit;
    text->setObjectName("verdict");
    text->setAccessibleName(QObject::tr("Verdict"));
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    follow(text, verdict, [text](const std::string& now) { text->setPlainText(shown(now)); });
    return text;
}

void addList(QBoxLayout& row, ListField& field) {
    auto* list = new QComboBox;
    bind(*list, field);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(kNameLetters);
    auto* caption = new QLabel;
    bindCaption(*caption, *list, field);
    row.addWidget(caption);
    row.addWidget(list, 1);
}

}  // namespace

ResultsDialog::ResultsDialog(ResultsForm& form, QWidget* parent)
    : FormDialog("q3results", form.q3results, parent), form_(form) {
    setWindowTitle(shownTitle(dialogInfo("q3results").title));
    setSizeGripEnabled(true);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kGap, kGap, kGap, kGap);
    column->setSpacing(kGap);
    column->addLayout(makeRuns());
    column->addWidget(makeText("about", form.about));
    auto* split = new QSplitter(Qt::Vertical);
    split->setChildrenCollapsible(false);
    split->addWidget(makeFigures());
    split->addWidget(makeTable(form.figures));
    split->addWidget(makeComparison());
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 1);
    split->setStretchFactor(2, 1);
    column->addWidget(split, 1);
    column->addLayout(makeButtons());
    const QFontMetrics letters = fontMetrics();
    resize(kLetters * letters.averageCharWidth(), kLines * letters.lineSpacing());
    followForm();
}

QLayout* ResultsDialog::makeRuns() {
    auto* row = new QHBoxLayout;
    row->setSpacing(kGap);
    addList(*row, form_.runlist);
    addList(*row, form_.otherrun);
    return row;
}

QWidget* ResultsDialog::makeFigures() {
    auto* pane = new QWidget;
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins({});
    chart_ = new ChartView;
    chart_->setObjectName("chart");
    chart_->setAccessibleName(tr("Chart of frames per second"));
    listen(chart_, form_.rowsChanged, [this] { chart_->setRows(form_.figures.rows()); });
    chart_->setRows(form_.figures.rows());
    auto* current = new ElidedLabel(Qt::ElideMiddle);
    current->setObjectName("dot");
    connect(chart_, &ChartView::currentText, current, [current](const QString& text) { current->setText(text); });
    auto* legend = new ElidedLabel(Qt::ElideRight);
    legend->setObjectName("legend");
    legend->setText(
        tr("Dot: an iteration. Line: the median. Bar: 95 % interval of the mean. Ring: far from the others. "
           "Cross: not counted."));
    column->addWidget(chart_, 1);
    column->addWidget(legend);
    column->addWidget(current);
    return pane;
}

QWidget* ResultsDialog::makeComparison() {
    auto* pane = new QWidget;
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins({});
    auto* row = new QHBoxLayout;
    row->setSpacing(kGap);
    addList(*row, form_.firstconfig);
    addList(*row, form_.secondconfig);
    column->addLayout(row);
    auto* sides = new QHBoxLayout;
    sides->setSpacing(kGap);
    sides->addWidget(makeVerdict(form_.verdict), 1);
    sides->addWidget(makeDifferences(form_.differences), 1);
    column->addLayout(sides, 1);
    return pane;
}

QLayout* ResultsDialog::makeButtons() {
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (const auto& [name, command] : {std::pair{"copyresults", &ResultsForm::copyresults_Click},
                                        std::pair{"saveresults", &ResultsForm::saveresults_Click},
                                        std::pair{"resultsclose", &ResultsForm::resultsclose_Click}}) {
        QPushButton* button = makeCommandButton(name, this);
        connect(button, &QPushButton::clicked, this, [&form = form_, run = command] { (form.*run)(); });
        buttons->addWidget(button);
    }
    findChild<QPushButton*>("resultsclose")->setDefault(true);
    return buttons;
}

void ResultsDialog::reject() { form_.resultsclose_Click(); }

void ResultsDialog::comeUp() { chart_->setFocus(); }

}  // namespace gatehouse
