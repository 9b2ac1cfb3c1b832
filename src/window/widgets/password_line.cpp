#include "window/widgets/password_line.h"

#include "window/widgets/icons.h"

#include <QAction>
#include <QLineEdit>

namespace gatehouse {

void hideBehindEye(QLineEdit& line) {
    line.setEchoMode(QLineEdit::Password);
    QAction* eye = line.addAction(icon("eye"), QLineEdit::TrailingPosition);
    eye->setCheckable(true);
    eye->setText(QObject::tr("Show Password"));
    eye->setToolTip(QObject::tr("Show or hide the password"));
    QObject::connect(eye, &QAction::toggled, &line,
                     [&line](bool on) { line.setEchoMode(on ? QLineEdit::Normal : QLineEdit::Password); });
}

}  // namespace gatehouse
