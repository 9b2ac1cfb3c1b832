#include "window/dialogs/reset_prompt.h"

#include "platform/qt/shown_text.h"
#include "window/rules/commands.h"
#include "window/rules/tab_reset.h"
#include "window/widgets/command_views.h"
#include "window/widgets/icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace gatehouse {

namespace {

constexpr int kPictureSide = 32;
constexpr int kGap = 16;

}  // namespace

ResetPrompt::ResetPrompt(TabReset& reset, QWidget* parent)
    : FormDialog("q3resetprompt", reset.q3resetprompt, parent), reset_(reset) {
    setWindowTitle(shownTitle(dialogInfo("q3resetprompt").title));

    auto* picture = new QLabel(this);
    picture->setPixmap(icon("reset").pixmap(QSize(kPictureSide, kPictureSide), devicePixelRatioF()));
    auto* question = new QLabel(tr("Reset All Tabs, or Just the Current Tab?"), this);
    question->setTextFormat(Qt::PlainText);
    setAccessibleDescription(question->text());
    auto* upper = new QHBoxLayout;
    upper->setSpacing(kGap);
    upper->addWidget(picture);
    upper->addWidget(question, 1);

    QPushButton* current = makeButton("q3resetcurrent", "current");
    QPushButton* all = makeButton("q3resetall", "all");
    cancel_ = makeButton("q3resetcancel", "");
    cancel_->setDefault(true);
    auto* lower = new QHBoxLayout;
    lower->addStretch(1);
    for (QPushButton* button : {current, all, cancel_}) lower->addWidget(button);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kGap, kGap, kGap, kGap);
    column->setSpacing(kGap);
    column->addLayout(upper);
    column->addLayout(lower);
    column->setSizeConstraint(QLayout::SetFixedSize);
    followForm();
}

QPushButton* ResetPrompt::makeButton(std::string_view name, std::string_view word) {
    QPushButton* button = makeCommandButton(name, this);
    connect(button, &QPushButton::clicked, this, [this, word] { reset_.chooseReset(word); });
    return button;
}

void ResetPrompt::reject() { reset_.chooseReset(""); }

void ResetPrompt::comeUp() { cancel_->setFocus(); }

}  // namespace gatehouse
