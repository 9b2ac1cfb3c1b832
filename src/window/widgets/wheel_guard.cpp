#include "window/widgets/wheel_guard.h"

#include <QEvent>
#include <QWidget>

namespace gatehouse {

namespace {

class WheelGuard : public QObject {
public:
    explicit WheelGuard(QWidget& widget) : QObject(&widget), widget_(widget) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Wheel || widget_.hasFocus()) return false;
        event->ignore();
        return true;
    }

private:
    QWidget& widget_;
};

}  // namespace

void guardFromWheel(QWidget& widget) {
    widget.setFocusPolicy(Qt::StrongFocus);
    widget.installEventFilter(new WheelGuard(widget));
}

}  // namespace gatehouse
