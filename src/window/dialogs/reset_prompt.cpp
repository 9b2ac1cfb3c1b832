#include "window/dialogs/reset_prompt.h"

#include "window/widgets/icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace gatehouse {

namespace {

constexpr int kPictureSide = 32;
constexpr int kGap = 16;

}  // namespace

ResetPrompt::ResetPrompt(Log& log, const Observable<std::string>& tabKey,
                         std::function<void(const std::string&)> chosen, QWidget* parent)
    : QDialog(parent), log_(log), tabKey_(tabKey), chosen_(std::move(chosen)) {
    setObjectName("q3resetprompt");
    setWindowTitle(tr("Reset Tab/Tabs"));
    setModal(true);

    auto* picture = new QLabel(this);
    picture->setPixmap(icon("reset").pixmap(QSize(kPictureSide, kPictureSide), devicePixelRatioF()));
    auto* question = new QLabel(tr("Reset All Tabs, or Just the Current Tab?"), this);
    question->setTextFormat(Qt::PlainText);
    setAccessibleDescription(question->text());
    auto* upper = new QHBoxLayout;
    upper->setSpacing(kGap);
    upper->addWidget(picture);
    upper->addWidget(question, 1);

    QPushButton* current = makeButton("q3resetcurrent", tr("C&urrent"));
    QPushButton* all = makeButton("q3resetall", tr("&All"));
    cancel_ = makeButton("q3resetcancel", tr("Cancel"));
    cancel_->setDefault(true);
    connect(current, &QPushButton::clicked, this,
            [this] { answer("current", "user chose to reset only the " + tabKey_.get() + " tab"); });
    connect(all, &QPushButton::clicked, this, [this] { answer("all", "user chose to reset all tabs"); });
    connect(cancel_, &QPushButton::clicked, this, &ResetPrompt::reject);
    auto* lower = new QHBoxLayout;
    lower->addStretch(1);
    for (QPushButton* button : {current, all, cancel_}) lower->addWidget(button);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kGap, kGap, kGap, kGap);
    column->setSpacing(kGap);
    column->addLayout(upper);
    column->addLayout(lower);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

QPushButton* ResetPrompt::makeButton(const QString& name, const QString& text) {
    auto* button = new QPushButton(text, this);
    button->setObjectName(name);
    return button;
}

void ResetPrompt::ask() {
    cancel_->setFocus();
    show();
}

void ResetPrompt::answer(const std::string& what, const std::string& report) {
    log_.logEvent(report);
    hide();
    chosen_(what);
}

}  // namespace gatehouse
