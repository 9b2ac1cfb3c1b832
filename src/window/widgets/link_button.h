#pragma once

#include <QPushButton>

namespace gatehouse {

/// A button that looks like a link. Its text is plain.
QPushButton* makeLinkButton(const QString& name, QWidget* parent);

}  // namespace gatehouse
