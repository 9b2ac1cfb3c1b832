#include "window/widgets/elided_label.h"

#include <QPainter>
#include <QStyle>

namespace gatehouse {

ElidedLabel::ElidedLabel(Qt::TextElideMode mode, QWidget* parent) : QLabel(parent), mode_(mode) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize ElidedLabel::sizeHint() const { return minimumSizeHint(); }
QSize ElidedLabel::minimumSizeHint() const { return {0, fontMetrics().height() + 2 * margin()}; }

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect area = contentsRect().marginsRemoved({margin(), margin(), margin(), margin()});
    const QString line = text().simplified();
    style()->drawItemText(&painter, area, static_cast<int>(alignment() | Qt::TextSingleLine), palette(), isEnabled(),
                          fontMetrics().elidedText(line, mode_, area.width()), foregroundRole());
}

}  // namespace gatehouse
