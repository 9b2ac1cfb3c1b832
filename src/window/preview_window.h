#pragma once

#include <QWidget>

namespace gatehouse {

class Preview;

/// The window `q3levelshot`: the picture of the selected map or skin, beside the main window. It never takes the input
/// focus, and stays on the screen.
class PreviewWindow : public QWidget {
    Q_OBJECT

public:
    /// The preview must outlive the window; `main` is what it stands beside.
    PreviewWindow(Preview& preview, QWidget* main);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeContent();
    void takeSizes();
    /// Beside the main window, its top at that one's top.
    void placeBeside();
    void keepOnScreen();
    QRect room() const;

    Preview& preview_;
    QWidget* picture_ = nullptr;
    QPoint placed_;
};

}  // namespace gatehouse
