#pragma once

#include "benchmark/chart.h"

#include <QAbstractScrollArea>

#include <optional>
#include <vector>

namespace gatehouse {

/// The chart of results. The core lays it out; it is painted here, in the palette's colours. One dot is the current
/// one: arrow keys walk, a screen reader hears each.
class ChartView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit ChartView(QWidget* parent = nullptr);

    void setRows(std::vector<ResultRow> rows);

    // For screen readers.
    int dotCount() const { return static_cast<int>(chart_.dots.size()); }
    int currentDot() const { return current_ ? static_cast<int>(*current_) : -1; }
    QString textOf(int dot) const;
    /// Where a dot is in the view.
    QRect rectOf(int dot) const;

public Q_SLOTS:
    void setCurrentDot(int dot);

Q_SIGNALS:
    /// What the current dot says; empty without one.
    void currentText(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void layOutAnew();
    void paintScale(QPainter& painter) const;
    void paintRow(QPainter& painter, const ChartRow& row) const;
    void paintDot(QPainter& painter, const ChartDot& dot, bool current) const;
    void showCurrent();

    std::vector<ResultRow> rows_;
    ChartLayout chart_;
    std::optional<std::size_t> current_;
};

}  // namespace gatehouse
