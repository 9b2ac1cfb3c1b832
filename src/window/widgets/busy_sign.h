#pragma once

#include <QBasicTimer>
#include <QWidget>

namespace gatehouse {

/// A ring that turns for as long as it is on show: there is work going on.
class BusySign : public QWidget {
    Q_OBJECT

public:
    explicit BusySign(QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QBasicTimer timer_;
    int step_ = 0;
};

}  // namespace gatehouse
