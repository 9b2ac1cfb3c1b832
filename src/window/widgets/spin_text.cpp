#include "window/widgets/spin_text.h"

#include "base/numbers.h"
#include "platform/qt/shown_text.h"

#include <QLineEdit>

#include <algorithm>
#include <cstdlib>

namespace gatehouse {

SpinText::SpinText(QWidget* parent) : QAbstractSpinBox(parent) {
    // The text is the value: nothing is read back from it into a second one.
    setKeyboardTracking(false);
}

double SpinText::number() const { return val(lineEdit()->text().toStdString()); }

void SpinText::stepBy(int steps) {
    if (step_) {
        for (int i = 0; i < std::abs(steps); ++i) step_(steps < 0 ? -1 : 1);
        return;
    }
    const double wanted = number() + static_cast<double>(steps) * range_.step;
    const double bounded = std::clamp(wanted, static_cast<double>(range_.min), static_cast<double>(range_.max));
    lineEdit()->setText(QString::number(static_cast<int>(bounded)));
    lineEdit()->selectAll();
}

QAbstractSpinBox::StepEnabled SpinText::stepEnabled() const {
    StepEnabled enabled = StepNone;
    if (step_) {  // what it does with a value out of the range is its own affair
        if (number() != range_.max) enabled |= StepUpEnabled;
        if (number() != range_.min) enabled |= StepDownEnabled;
        return enabled;
    }
    if (number() < range_.max) enabled |= StepUpEnabled;
    if (number() > range_.min) enabled |= StepDownEnabled;
    return enabled;
}

}  // namespace gatehouse
