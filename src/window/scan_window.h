#pragma once

#include <QDialog>
#include <QTimer>

class QBoxLayout;
class QLabel;
class QProgressBar;
class QPushButton;

namespace gatehouse {

class ScanView;

/// The window of a scan: a sign that there is work going on, where the scan is, how far it has come, and a button that
/// stops it. A window of its own: scans run before there is a main window, too.
class ScanWindow : public QDialog {
    Q_OBJECT

public:
    /// Comes up once the scan has gone on for so many milliseconds: one that is over sooner is not worth a flash. The
    /// view must outlive the window.
    ScanWindow(ScanView& view, int delay);

    /// Escape and the title bar's close button. The window goes when the scan does.
    void reject() override { stop(); }

private:
    void addTexts(QBoxLayout& column);
    void addProgress(QBoxLayout& column);
    void showProgress();
    void comeUp();
    void stop();

    ScanView& view_;
    QTimer delay_;
    QProgressBar* bar_ = nullptr;
    QPushButton* stop_ = nullptr;
};

}  // namespace gatehouse
