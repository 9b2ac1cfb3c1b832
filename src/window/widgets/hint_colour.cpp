#include "window/widgets/hint_colour.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>

namespace gatehouse {

namespace {

void takeTextColour() {
    QColor hint = QApplication::palette().color(QPalette::Text);
    hint.setAlphaF(0.5F);
    if (QApplication::palette().color(QPalette::PlaceholderText) == hint) return;
    QPalette hints;  // the one colour alone, so that the others stay the desktop's
    hints.setColor(QPalette::PlaceholderText, hint);
    QApplication::setPalette(hints);
}

}  // namespace

HintColour::HintColour() {
    QCoreApplication::instance()->installEventFilter(this);
    takeTextColour();
}

bool HintColour::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) takeTextColour();
    return false;
}

}  // namespace gatehouse
