#pragma once

#include "base/field.h"

#include <QAbstractSpinBox>

#include <functional>
#include <utility>

namespace gatehouse {

/// A line of text with spin buttons. The buttons count within a range; what is typed may be any text.
class SpinText : public QAbstractSpinBox {
    Q_OBJECT

public:
    explicit SpinText(QWidget* parent = nullptr);

    /// Sets the bounds and the step of the buttons.
    void setRange(const Range& range) { range_ = range; }
    /// Lets the buttons do something else than count: `step` gets 1 or -1, for each step.
    void setStep(std::function<void(int direction)> step) { step_ = std::move(step); }
    /// The line in which the text is typed.
    QLineEdit& line() const { return *lineEdit(); }

    void stepBy(int steps) override;

protected:
    StepEnabled stepEnabled() const override;

private:
    double number() const;

    Range range_;
    std::function<void(int)> step_;
};

}  // namespace gatehouse
