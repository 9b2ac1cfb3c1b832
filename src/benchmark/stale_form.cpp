#include "benchmark/stale_form.h"

#include "base/numbers.h"
#include "platform/forms.h"

namespace gatehouse {

namespace {

constexpr int kSecond = 1000;  // milliseconds

}  // namespace

StaleForm::StaleForm(EventLoop& events) : events_(events), waittimer_(events.createTimer([this] { tick(); })) {
    waittimer_->setInterval(kSecond);
}

bool StaleForm::ask(const std::string& text, bool retryByDefault) {
    msg.set(text);
    retryIsDefault.set(retryByDefault);
    retry_ = false;
    StaleCountdown_ = 0;
    waitbar.set(0);
    waittimer_->setEnabled(true);
    showModal(waitwindow, events_);
    waittimer_->setEnabled(false);  // it was hidden from elsewhere
    return retry_;
}

void StaleForm::tick() {
    StaleCountdown_ = addInt16(StaleCountdown_, 1);
    waitbar.set(StaleCountdown_);
    if (StaleCountdown_ == kSeconds) answer(retryIsDefault.get());
}

void StaleForm::answer(bool retry) {
    waittimer_->setEnabled(false);
    retry_ = retry;
    waitwindow.set(false);
}

}  // namespace gatehouse
