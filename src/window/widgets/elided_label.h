#pragma once

#include <QLabel>

namespace gatehouse {

/// One line of plain text that never asks for more room than there is: what doesn't fit is left out where `mode` says.
/// The whole text remains what is read out.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(Qt::TextElideMode mode, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Qt::TextElideMode mode_;
};

}  // namespace gatehouse
