#include "platform/qt/qt_resources.h"

#include "platform/qt/shown_text.h"

#include <QFile>

static void registerTexts() { Q_INIT_RESOURCE(texts); }

namespace gatehouse {

QtResources::QtResources() { registerTexts(); }

std::string QtResources::text(std::string_view name) const {
    QFile file(":/texts/" + shown(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

}  // namespace gatehouse
