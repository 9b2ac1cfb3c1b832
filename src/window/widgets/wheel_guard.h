#pragma once

class QWidget;

namespace gatehouse {

/// Lets the wheel change a widget only while it has the focus: who scrolls what it stands in must not change what
/// happens to pass under the mouse. A click gives it the focus, the wheel doesn't.
void guardFromWheel(QWidget& widget);

}  // namespace gatehouse
