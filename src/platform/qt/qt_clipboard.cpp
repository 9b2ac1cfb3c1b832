#include "platform/qt/qt_clipboard.h"

#include "platform/qt/shown_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace gatehouse {

bool QtClipboard::hasText() const {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasText();
}

std::string QtClipboard::text() const { return textBytes(QGuiApplication::clipboard()->text()); }

void QtClipboard::setText(const std::string& text) { QGuiApplication::clipboard()->setText(shown(text)); }

}  // namespace gatehouse
