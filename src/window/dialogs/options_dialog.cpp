#include "window/dialogs/options_dialog.h"

#include "platform/qt/shown_text.h"
#include "startup/options.h"
#include "window/rules/commands.h"
#include "window/rules/options_rules.h"
#include "window/widgets/binders.h"
#include "window/widgets/command_views.h"
#include "window/widgets/field_grid.h"
#include "window/widgets/follow.h"
#include "window/widgets/spin_text.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

namespace gatehouse {

namespace {

constexpr int kSectionGap = FieldGrid::kSectionGap;
constexpr int kLineLetters = 44;
constexpr int kSpinLetters = 10;
constexpr int kClickMilliseconds = 10;

}  // namespace

OptionsDialog::OptionsDialog(OptionsForm& form, OptionsRules& rules, QWidget* parent)
    : FormDialog("q3options", rules.q3options, parent), form_(form), rules_(rules) {
    setWindowTitle(shownTitle(dialogInfo("q3options").title));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(2 * kSectionGap);
    column->addWidget(makeFields());
    column->addStretch(1);
    column->addLayout(makeButtons());
    followForm();
}

void OptionsDialog::reject() {
    folderOpen_ = false;
    rules_.optionsCancel_Click();
}

QWidget* OptionsDialog::makeFields() {
    auto* fields = new QWidget(this);
    auto* grid = new FieldGrid(fields);

    grid->addHeading("Game");
    QLineEdit* path = makeLine(form_.q3FilePath);
    path->setReadOnly(true);  // only a file that was chosen is stored
    grid->addField(form_.q3FilePath, *path, makeButton("q3GetFile", &OptionsRules::q3GetFile_Click));
    grid->addField(form_.extracmdline, *makeLine(form_.extracmdline));
    grid->addField(form_.q3runoptions, *makeList(form_.q3runoptions));
    grid->addField(form_.q3pingwait, *makeSpin(form_.q3pingwait));

    grid->addHeading("Files and Logs");
    ghcdir_ = makeLine(form_.ghcdir);
    ghcdir_->installEventFilter(this);
    // A button that is pressed by its shortcut leaves the focus in the line.
    connect(ghcdir_, &QLineEdit::textEdited, this, [this] { folderOpen_ = true; });
    QPushButton* browse = makeCommandButton("ghcdirBrowse", this);
    connect(browse, &QPushButton::clicked, this, &OptionsDialog::browseFolder);
    grid->addField(form_.ghcdir, *ghcdir_, browse);
    grid->addField(form_.q3startwith, *makeList(form_.q3startwith));
    grid->addField(form_.q3overwrite, *makeList(form_.q3overwrite));
    grid->addField(form_.q3loglevel, *makeList(form_.q3loglevel));
    grid->addField(form_.q3keeplogs, *makeSpin(form_.q3keeplogs));
    grid->addField(form_.q3buffsize, *makeSpin(form_.q3buffsize));
    return fields;
}

QLineEdit* OptionsDialog::makeLine(TextField& field) {
    auto* line = new QLineEdit(this);
    line->setMinimumWidth(kLineLetters * line->fontMetrics().averageCharWidth());
    bind(*line, field);
    return line;
}

QWidget* OptionsDialog::makeSpin(TextField& field) {
    auto* spin = new SpinText(this);
    bind(*spin, field);
    spin->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    spin->setMinimumWidth(qMax(spin->sizeHint().width(), kSpinLetters * spin->fontMetrics().averageCharWidth()));
    return spin;
}

QWidget* OptionsDialog::makeList(ListField& field) {
    auto* list = new QComboBox(this);
    list->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    bind(*list, field);
    return list;
}

QBoxLayout* OptionsDialog::makeButtons() {
    auto* row = new QHBoxLayout;
    row->addWidget(makeButton("editscripts", &OptionsRules::editscripts_Click));
    row->addWidget(makeButton("viewerr", &OptionsRules::viewerr_Click));
    row->addSpacing(kSectionGap);
    row->addWidget(makeButton("q3resetdefaults", &OptionsRules::q3resetdefaults_Click));
    row->addWidget(makeButton("unregister", &OptionsRules::unregister_Click));
    row->addStretch(1);
    row->addSpacing(kSectionGap);
    QPushButton* ok = makeButton("optionsOK", &OptionsRules::optionsOK_Click);
    ok->setDefault(true);
    row->addWidget(ok);
    return row;
}

QPushButton* OptionsDialog::makeButton(std::string_view name, Command command) {
    QPushButton* button = makeCommandButton(name, this);
    connect(button, &QPushButton::clicked, this, [this, command] { run(command); });
    return button;
}

void OptionsDialog::run(Command command) {
    if (settleFolder()) (rules_.*command)();
}

bool OptionsDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ghcdir_ && event->type() == QEvent::FocusIn) folderOpen_ = true;
    if (watched == ghcdir_ && event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        // Another window or the line's own menu is no leaving.
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) settleFolderSoon();
    }
    return FormDialog::eventFilter(watched, event);
}

void OptionsDialog::settleFolderSoon() {
    // A box that opens between press and release would keep the button under the mouse down for good.
    QTimer::singleShot(kClickMilliseconds, this, [this] {
        if (QGuiApplication::mouseButtons() != Qt::NoButton)
            settleFolderSoon();
        else if (!ghcdir_->hasFocus())
            settleFolder();
    });
}

void OptionsDialog::browseFolder() {
    // A wrong folder is no reason not to look for the right one.
    const bool open = std::exchange(folderOpen_, false);
    if (rules_.ghcdirBrowse_Click()) return;
    folderOpen_ = open;
    settleFolder();
}

bool OptionsDialog::settleFolder() {
    if (!std::exchange(folderOpen_, false) || rules_.ghcdir_LostFocus()) return true;
    ghcdir_->setFocus();
    ghcdir_->selectAll();
    folderOpen_ = true;
    return false;
}

}  // namespace gatehouse
