#include "window/dialogs/stale_dialog.h"

#include "benchmark/stale_form.h"
#include "platform/qt/shown_text.h"
#include "window/rules/commands.h"
#include "window/widgets/command_views.h"
#include "window/widgets/follow.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kGap = 16;
constexpr int kLetters = 60;

}  // namespace

StaleDialog::StaleDialog(StaleForm& form, QWidget* parent)
    : FormDialog("waitwindow", form.waitwindow, parent),
      form_(form),
      retry_(makeCommandButton("wretry", this)),
      next_(makeCommandButton("wnext", this)) {
    setWindowTitle(shownTitle(dialogInfo("waitwindow").title));
    auto* msg = new QLabel(this);
    msg->setObjectName("msg");
    msg->setTextFormat(Qt::PlainText);
    msg->setTextInteractionFlags(Qt::TextSelectableByMouse);
    msg->setWordWrap(true);
    msg->setMinimumWidth(kLetters * fontMetrics().averageCharWidth());
    follow(msg, form.msg, [this, msg](const std::string& text) {
        msg->setText(shown(text).remove('\r'));
        setAccessibleDescription(msg->text());
    });

    auto* bar = new QProgressBar(this);
    bar->setObjectName("waitbar");
    bar->setAccessibleName(tr("Seconds until the default action"));
    bar->setRange(0, StaleForm::kSeconds);
    bar->setTextVisible(false);
    follow(bar, form.waitbar, [bar](int seconds) { bar->setValue(seconds); });

    connect(retry_, &QPushButton::clicked, this, [this] { form_.wretry_Click(); });
    connect(next_, &QPushButton::clicked, this, [this] { form_.wnext_Click(); });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(bar, 1);
    buttons->addSpacing(kGap);
    buttons->addWidget(retry_);
    buttons->addWidget(next_);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kGap, kGap, kGap, kGap);
    column->setSpacing(kGap);
    column->addWidget(msg, 1);
    column->addLayout(buttons);
    followForm();
}

void StaleDialog::reject() { form_.unload(); }

void StaleDialog::comeUp() {
    QPushButton* wanted = form_.retryIsDefault.get() ? retry_ : next_;
    wanted->setDefault(true);
    wanted->setFocus();
}

}  // namespace gatehouse
