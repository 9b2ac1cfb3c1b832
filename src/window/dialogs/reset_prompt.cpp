#include "window/dialogs/reset_prompt.h"

#include "window/rules/tab_reset.h"
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
    setWindowTitle(tr("Reset Tab/Tabs"));

    auto* picture = new QLabel(this);
    picture->setPixmap(icon("reset").pixmap(QSize(kPictureSide, kPictureSide), devicePixelRatioF()));
    auto* question = new QLabel(tr("Reset All Tabs, or Just the Current Tab?"), this);
    question->setTextFormat(Qt::PlainText);
    setAccessibleDescription(question->text());
    auto* upper = new QHBoxLayout;
    upper->setSpacing(kGap);
    upper->addWidget(picture);
    upper->addWidget(question, 1);

    QPushButton* current = makeButton("q3resetcurrent", tr("C&urrent"), "current");
    QPushButton* all = makeButton("q3resetall", tr("&All"), "all");
    cancel_ = makeButton("q3resetcancel", tr("Cancel"), "");
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

QPushButton* ResetPrompt::makeButton(const QString& name, const QString& text, std::string_view word) {
    auto* button = new QPushButton(text, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, [this, word] { reset_.chooseReset(word); });
    return button;
}

void ResetPrompt::reject() { reset_.chooseReset(""); }

void ResetPrompt::comeUp() { cancel_->setFocus(); }

}  // namespace gatehouse
