#pragma once

class QLineEdit;

namespace gatehouse {

/// Shows dots in the place of what is typed, and an eye in the line that shows it, and hides it again.
void hideBehindEye(QLineEdit& line);

}  // namespace gatehouse
