#pragma once

#include <QIcon>
#include <QString>

class QSvgRenderer;

namespace gatehouse {

/// An icon of our family, such as "open", drawn in the palette's own colours at whatever size is asked for, so that it
/// can be read on a light and on a dark ground.
QIcon icon(const QString& name);

/// True if there is a picture of that name.
bool hasPicture(const QString& name);

/// Loads one of our pictures, such as "splash", with `ink` in the place of its current colour.
void loadPicture(QSvgRenderer& renderer, const QString& name, const QString& ink = "#000000");

}  // namespace gatehouse
