#pragma once

#include <QObject>

namespace gatehouse {

/// Keeps hints in empty fields and tables legible while it lives: they have the colour of text, half of it. Some
/// desktops' palettes leave them black, on a dark ground as well.
class HintColour : public QObject {
public:
    /// There must be an application.
    HintColour();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace gatehouse
