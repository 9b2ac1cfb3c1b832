#include "window/dialogs/new_bot_dialog.h"

#include "platform/qt/shown_text.h"
#include "window/rules/bots_rules.h"
#include "window/rules/commands.h"
#include "window/widgets/binders.h"
#include "window/widgets/command_views.h"
#include "window/widgets/field_grid.h"
#include "window/widgets/spin_text.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace gatehouse {

namespace {

constexpr int kEdge = 16;
constexpr int kEditorLetters = 24;

void addField(FieldGrid& grid, Field& field, QWidget& editor) {
    editor.setMinimumWidth(kEditorLetters * editor.fontMetrics().averageCharWidth());
    grid.addField(field, editor);
}

}  // namespace

NewBotDialog::NewBotDialog(BotsRules& rules, QWidget* parent)
    : FormDialog("q3newbot", rules.q3newbot, parent), rules_(rules), name_(new QComboBox(this)) {
    setWindowTitle(shownTitle(dialogInfo("q3newbot").title));
    auto* grid = new FieldGrid;
    bind(*name_, rules.newbotname);
    addField(*grid, rules.newbotname, *name_);
    auto* skill = new SpinText(this);
    bind(*skill, rules.newbotskill);
    addField(*grid, rules.newbotskill, *skill);
    auto* team = new QComboBox(this);
    bind(*team, rules.newbotteam);
    addField(*grid, rules.newbotteam, *team);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (const auto& [buttonName, command] : {std::pair{"newbotOK", &BotsRules::newbotOK_Click},
                                              std::pair{"newbotcancel", &BotsRules::newbotcancel_Click}}) {
        QPushButton* button = makeCommandButton(buttonName, this);
        connect(button, &QPushButton::clicked, this, [&rules, run = command] { (rules.*run)(); });
        buttons->addWidget(button);
    }
    findChild<QPushButton*>("newbotOK")->setDefault(true);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kEdge, kEdge, kEdge, kEdge);
    column->setSpacing(kEdge);
    column->addLayout(grid);
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    followForm();
}

void NewBotDialog::reject() { rules_.newbotcancel_Click(); }

void NewBotDialog::comeUp() { name_->setFocus(); }

}  // namespace gatehouse
