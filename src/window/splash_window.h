#pragma once

#include <QWidget>

class QBoxLayout;
class QLabel;

namespace gatehouse {

struct RunState;
struct SplashView;

/// The window `q3splash`: a picture, how far the load sequence has come, and what it is doing.
class SplashWindow : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive the window.
    SplashWindow(SplashView& view, const RunState& run);

private:
    void addProgress(QBoxLayout& column, SplashView& view);
    void addTexts(QBoxLayout& column, SplashView& view);
    void showCentred();
};

}  // namespace gatehouse
