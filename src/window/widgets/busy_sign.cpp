#include "window/widgets/busy_sign.h"

#include <QPainter>
#include <QPalette>

namespace gatehouse {

namespace {

constexpr int kSide = 40;
constexpr int kThickness = 4;
constexpr int kStepMilliseconds = 40;
constexpr int kStepsPerTurn = 36;
// Angles are sixteenths of a degree.
constexpr int kFullTurn = 360 * 16;
constexpr int kArc = 100 * 16;

}  // namespace

BusySign::BusySign(QWidget* parent) : QWidget(parent) {
    setObjectName("movie");
    setFixedSize(kSide, kSide);
}

void BusySign::showEvent(QShowEvent*) { timer_.start(kStepMilliseconds, this); }
void BusySign::hideEvent(QHideEvent*) { timer_.stop(); }

void BusySign::timerEvent(QTimerEvent*) {
    step_ = (step_ + 1) % kStepsPerTurn;
    update();
}

void BusySign::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ring = QRectF(rect()).adjusted(kThickness, kThickness, -kThickness, -kThickness);
    painter.setPen(QPen(palette().color(QPalette::Mid), kThickness));
    painter.drawEllipse(ring);
    painter.setPen(QPen(palette().color(QPalette::Highlight), kThickness, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, -step_ * kFullTurn / kStepsPerTurn, kArc);
}

}  // namespace gatehouse
