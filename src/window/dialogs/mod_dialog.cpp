#include "window/dialogs/mod_dialog.h"

#include "platform/qt/shown_text.h"
#include "window/rules/commands.h"
#include "window/rules/mod_options.h"
#include "window/widgets/command_views.h"
#include "window/widgets/follow.h"
#include "window/widgets/link_button.h"
#include "window/widgets/spin_text.h"
#include "window/widgets/twips.h"
#include "window/widgets/wheel_guard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QUrl>

#include <limits>

namespace gatehouse {

namespace {

constexpr int kEdge = 16;
constexpr int kGap = 12;
constexpr int kHeaderLine = 30;
constexpr int kFrame = 48;  // what the window manager may draw around the dialog
constexpr int kMostLabelLetters = 40;
constexpr int kMostListLetters = 32;
constexpr double kTitleSize = 1.35;  // times the usual font
/// What a column of options takes in the grid: a label, an editor, and room to the next.
constexpr int kCellsPerColumn = 3;

/// A file of a mod comes from anywhere: what it names is opened as a page of the web, or not at all.
QUrl webAddress(const ModLink& link) {
    QString target = shown(link.target).trimmed();
    if (!target.contains("://")) target.prepend("http://");
    const QUrl url(target);
    const bool web = (url.scheme() == "http" || url.scheme() == "https") && !url.host().isEmpty();
    return web ? url : QUrl();
}

/// The same as an address to write to, which can't fill in the rest of a message.
QUrl mailAddress(const ModLink& link) {
    QUrl url;
    url.setScheme("mailto");
    url.setPath(shown(link.caption).trimmed());
    return url.path().isEmpty() ? QUrl() : url;
}

QString elementName(const char* control, const ModField& field) {
    return QString("%1(%2)").arg(control).arg(field.index);
}

QString title(const ModField& field) {
    const QString text = shown(field.caption).chopped(1).trimmed();
    return text.isEmpty() ? shown(field.name) : text;
}

QLabel* makeLabel(const ModField& field, QWidget* editor) {
    auto* label = new QLabel(shown(field.caption).replace('&', "&&"));
    label->setObjectName(elementName("mlabel", field));
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setBuddy(editor);
    label->setToolTip(editor->toolTip());
    const int most = kMostLabelLetters * label->fontMetrics().averageCharWidth();
    if (label->sizeHint().width() > most) {
        label->setWordWrap(true);
        label->setFixedWidth(most);
        label->setMinimumHeight(label->heightForWidth(most));
    }
    return label;
}

}  // namespace

ModDialog::ModDialog(ModOptions& rules, QWidget* parent)
    : FormDialog("q3mod", rules.q3mod, parent),
      rules_(rules),
      modname_(new QLabel(this)),
      modurl_(makeLink("modurl")),
      modemail_(makeLink("modemail")),
      modkeys_(new QLabel(this)),
      options_(new QScrollArea(this)),
      modclose_(makeCommandButton("modclose", this)) {
    setWindowTitle(shownTitle(dialogInfo("q3mod").title));
    modname_->setObjectName("modname");
    modname_->setTextFormat(Qt::PlainText);
    modname_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // a long title runs
    QFont heading = modname_->font();
    heading.setPointSizeF(heading.pointSizeF() * kTitleSize);
    heading.setBold(true);
    modname_->setFont(heading);
    follow(modname_, rules.modname, [this](const std::string& text) { modname_->setText(shown(text)); });

    modkeys_->setObjectName("modkeys");
    modkeys_->setTextFormat(Qt::PlainText);
    modkeys_->setAlignment(Qt::AlignCenter);
    modkeys_->setMinimumHeight(kHeaderLine);
    options_->setFrameShape(QFrame::NoFrame);
    options_->setFocusPolicy(Qt::NoFocus);
    options_->setWidgetResizable(true);
    modclose_->setDefault(true);
    connect(modclose_, &QPushButton::clicked, this, [&rules] { rules.modclose_Click(); });

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, kEdge, 0, kEdge);
    column->setSpacing(0);
    column->addWidget(modname_);
    for (QWidget* link : {modurl_, modemail_}) {
        link->setMinimumHeight(kHeaderLine);
        column->addWidget(link, 0, Qt::AlignHCenter);
    }
    column->addWidget(modkeys_);
    column->addSpacing(kGap);
    column->addWidget(options_, 1);
    column->addSpacing(kGap);
    column->addWidget(modclose_, 0, Qt::AlignHCenter);
    followForm();
    listen(this, rules.q3mod.changed, [this] {
        if (!rules_.q3mod.get()) dropFields();
    });
}

QPushButton* ModDialog::makeLink(const QString& name) {
    QPushButton* link = makeLinkButton(name, this);
    connect(link, &QPushButton::clicked, link,
            [link] { QDesktopServices::openUrl(link->property("address").toUrl()); });
    return link;
}

void ModDialog::showLink(QPushButton& button, const ModLink& link, const QUrl& address) {
    const int room = qMin(pixels(rules_.plan().width), mostSize().width()) - 2 * kEdge;
    const QString text = shown(link.caption);
    button.setText(button.fontMetrics().elidedText(text, Qt::ElideMiddle, room).replace('&', "&&"));
    button.setAccessibleName(text);
    button.setToolTip("<qt>" + address.toDisplayString().toHtmlEscaped() + "</qt>");
    button.setProperty("address", address);
    button.setEnabled(!address.isEmpty());
    button.setVisible(link.visible);
}

void ModDialog::comeUp() {
    const ModDialogPlan& plan = rules_.plan();
    modname_->setVisible(!modname_->text().trimmed().isEmpty());
    modname_->setAccessibleName(modname_->text().trimmed());
    modkeys_->setText(shown(plan.modkeys));
    showLink(*modurl_, plan.modurl, webAddress(plan.modurl));
    showLink(*modemail_, plan.modemail, mailAddress(plan.modemail));
    makeFields();
    fitIntoScreen();
    const int titleWidth = modname_->fontMetrics().horizontalAdvance(modname_->text());
    modname_->setAlignment(titleWidth < width() ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
    rules_.modnameMeasured(titleWidth, width());
}

void ModDialog::makeFields() {
    const ModDialogPlan& plan = rules_.plan();
    auto* body = new QWidget;
    auto* grid = new QGridLayout(body);
    grid->setContentsMargins(kEdge, 0, kEdge, 0);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(kGap / 2);
    QWidget* first = modclose_;
    for (const ModField& field : plan.fields) {
        const int cell = field.column * kCellsPerColumn;
        grid->setRowMinimumHeight(field.row, pixels(plan.kRowPitch) - kGap / 2);
        grid->setColumnMinimumWidth(cell, pixels(plan.kLabelWidth));
        grid->setColumnStretch(cell + 1, 1);
        if (field.column > 0) grid->setColumnMinimumWidth(cell - 1, kGap);
        QWidget* editor = makeEditor(field);
        grid->addWidget(makeLabel(field, editor), field.row, cell);
        grid->addWidget(editor, field.row, cell + 1);
        if (&field == &plan.fields.front()) first = editor;
    }
    grid->setRowStretch(plan.kRowsPerColumn, 1);
    dropFields();
    options_->setWidget(body);
    options_->setVisible(!plan.fields.empty());
    first->setFocus();
}

void ModDialog::dropFields() {
    if (QWidget* body = options_->takeWidget()) body->deleteLater();
}

QWidget* ModDialog::makeEditor(const ModField& field) {
    QWidget* editor = nullptr;
    switch (field.editor) {
        case ModEditor::Check: editor = makeCheck(field); break;
        case ModEditor::List: editor = makeList(field); break;
        case ModEditor::Text: editor = makeText(field); break;
        case ModEditor::Number: editor = field.spin ? makeSpin(field) : makeText(field); break;
        case ModEditor::None: return new QWidget;
    }
    if (field.editor != ModEditor::List) editor->setAccessibleName(title(field));  // a list has its label for that
    editor->setAccessibleDescription(shown(field.name));
    editor->setToolTip("<qt>" + shown(field.name).toHtmlEscaped() + "</qt>");
    editor->setMinimumWidth(qMax(editor->minimumWidth(), pixels(ModDialogPlan::kEditorWidth)));
    return editor;
}

QWidget* ModDialog::makeCheck(const ModField& field) {
    auto* box = new QCheckBox;
    box->setObjectName(elementName("mcheckbox", field));
    box->setChecked(field.checked);
    // Not the click: a screen reader ticks a box without one.
    connect(box, &QCheckBox::toggled, this, [this, i = field.index](bool on) { rules_.mcheckbox_Click(i, on); });
    return box;
}

QWidget* ModDialog::makeList(const ModField& field) {
    auto* list = new QComboBox;
    list->setObjectName(elementName("mlistbox", field));
    for (const std::string& item : field.listitems) list->addItem(shown(item));
    list->setCurrentIndex(field.listIndex);
    list->setMinimumWidth(qMin(list->sizeHint().width(), kMostListLetters * fontMetrics().averageCharWidth()));
    guardFromWheel(*list);
    connect(list, &QComboBox::activated, this,
            [this, i = field.index](int chosen) { rules_.mlistbox_Click(i, chosen); });
    return list;
}

QWidget* ModDialog::makeText(const ModField& field) {
    auto* line = new QLineEdit;
    line->setObjectName(elementName("mtextbox", field));
    followLine(*line, *line, field);
    return line;
}

QWidget* ModDialog::makeSpin(const ModField& field) {
    auto* spin = new SpinText;
    spin->setObjectName(elementName("mtextbox", field));
    spin->setRange(*field.spin);
    guardFromWheel(*spin);
    followLine(spin->line(), *spin, field);
    return spin;
}

void ModDialog::followLine(QLineEdit& line, QWidget& box, const ModField& field) {
    line.setMaxLength(std::numeric_limits<int>::max());
    line.setText(shown(field.text));
    line.setCursorPosition(0);
    connect(&line, &QLineEdit::textChanged, this, [this, &box, i = field.index](const QString& text) {
        if (!rules_.mtextbox_Change(i, typedBytes(text))) box.setFocus();
    });
}

QSize ModDialog::mostSize() const { return screen()->availableSize() - QSize(kFrame, kFrame); }

void ModDialog::fitIntoScreen() {
    const ModDialogPlan& plan = rules_.plan();
    const QSize most = mostSize();
    QSize wanted = sizeHint();
    if (!plan.fields.empty()) {
        const QSize inside = options_->widget()->sizeHint();
        wanted = {inside.width(), wanted.height() - options_->sizeHint().height() + inside.height()};
        if (wanted.height() > most.height()) wanted.rwidth() += options_->verticalScrollBar()->sizeHint().width();
        if (wanted.width() > most.width()) wanted.rheight() += options_->horizontalScrollBar()->sizeHint().height();
    }
    resize(wanted.expandedTo({pixels(plan.width), pixels(plan.height)}).boundedTo(most));
}

}  // namespace gatehouse
