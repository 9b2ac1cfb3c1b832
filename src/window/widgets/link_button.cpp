#include "window/widgets/link_button.h"

namespace gatehouse {

QPushButton* makeLinkButton(const QString& name, QWidget* parent) {
    auto* link = new QPushButton(parent);
    link->setObjectName(name);
    link->setFlat(true);
    link->setAutoDefault(false);
    link->setCursor(Qt::PointingHandCursor);
    link->setStyleSheet("QPushButton { border: none; padding: 2px 0; }"
                        "QPushButton:enabled { color: palette(link); text-decoration: underline; }"
                        "QPushButton:disabled { color: palette(mid); }"
                        "QPushButton:focus { border-bottom: 2px solid palette(highlight); }");
    return link;
}

}  // namespace gatehouse
