#include "window/widgets/chart_view.h"

#include "platform/qt/shown_text.h"
#include "window/widgets/table_model.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <map>
#include <utility>

namespace gatehouse {

namespace {

constexpr int kShortestLines = 9;

/// One dot, as a screen reader meets it.
class AccessibleDot : public QAccessibleInterface {
public:
    AccessibleDot(ChartView* view, int dot) : view_(view), dot_(dot) {}

    bool isValid() const override { return view_ && dot_ < view_->dotCount(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return view_->window()->windowHandle(); }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(view_.data()); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text what) const override {
        return what == QAccessible::Name && isValid() ? view_->textOf(dot_) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        const QRect inView = view_->rectOf(dot_);
        return {view_->viewport()->mapToGlobal(inView.topLeft()), inView.size()};
    }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.focusable = state.selectable = true;
        const bool current = view_->currentDot() == dot_;
        state.selected = current;
        state.focused = current && view_->hasFocus();
        return state;
    }

private:
    QPointer<ChartView> view_;
    int dot_;
};

/// The chart as a list of its dots. They are made when somebody asks for them.
class AccessibleChart : public QAccessibleWidget {
public:
    explicit AccessibleChart(ChartView* view) : QAccessibleWidget(view, QAccessible::List), view_(view) {}
    ~AccessibleChart() override {
        for (const auto& [dot, id] : made_) QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return view_->dotCount(); }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= view_->dotCount()) return nullptr;
        const auto [found, isNew] = made_.try_emplace(index, 0);
        if (isNew) found->second = QAccessible::registerAccessibleInterface(new AccessibleDot(view_, index));
        return QAccessible::accessibleInterface(found->second);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        for (const auto& [dot, id] : made_)
            if (QAccessible::accessibleInterface(id) == child) return dot;
        return -1;
    }
    QAccessibleInterface* focusChild() const override { return child(view_->currentDot()); }
    QAccessibleInterface* childAt(int x, int y) const override {
        for (int dot = 0; dot < view_->dotCount(); ++dot)
            if (child(dot)->rect().contains(x, y)) return child(dot);
        return nullptr;
    }

private:
    ChartView* view_;
    mutable std::map<int, QAccessible::Id> made_;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* view = qobject_cast<ChartView*>(object);
    return view ? new AccessibleChart(view) : nullptr;
}

}  // namespace

ChartView::ChartView(QWidget* parent) : QAbstractScrollArea(parent) {
    [[maybe_unused]] static const bool known = [] {
        QAccessible::installFactory(makeAccessible);
        return true;
    }();
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMinimumHeight(kShortestLines * fontMetrics().lineSpacing());
    viewport()->setBackgroundRole(QPalette::Base);
}

void ChartView::setRows(std::vector<ResultRow> rows) {
    rows_ = std::move(rows);
    current_.reset();
    layOutAnew();
    Q_EMIT currentText({});
}

void ChartView::layOutAnew() {
    const QFontMetricsF letters{font()};
    chart_ = layOut(rows_, {.width = static_cast<double>(viewport()->width()),
                            .letter = letters.averageCharWidth(),
                            .line = letters.lineSpacing()});
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(qRound(chart_.line));
    verticalScrollBar()->setRange(0, std::max(0, qRound(chart_.height) - viewport()->height()));
    viewport()->update();
}

QString ChartView::textOf(int dot) const {
    return shown(dotText(rows_, chart_.dots.at(static_cast<std::size_t>(dot))));
}

QRect ChartView::rectOf(int dot) const {
    const ChartDot& one = chart_.dots.at(static_cast<std::size_t>(dot));
    const double side = chart_.radius * 4;
    return QRectF(one.x - side / 2, one.y - side / 2 - verticalScrollBar()->value(), side, side).toRect();
}

void ChartView::setCurrentDot(int dot) {
    if (dot < 0 || dot >= dotCount()) return;
    current_ = static_cast<std::size_t>(dot);
    showCurrent();
    Q_EMIT currentText(textOf(dot));
    QAccessibleEvent moved(this, QAccessible::Focus);
    moved.setChild(dot);
    QAccessible::updateAccessibility(&moved);
}

void ChartView::showCurrent() {
    const ChartRow& row = chart_.rows[chart_.dots[*current_].row];
    QScrollBar* bar = verticalScrollBar();
    if (row.top < bar->value()) bar->setValue(qRound(row.top));
    if (row.bottom > bar->value() + viewport()->height()) bar->setValue(qRound(row.bottom) - viewport()->height());
    viewport()->update();
}

void ChartView::keyPressEvent(QKeyEvent* event) {
    const int last = dotCount() - 1;
    const int now = currentDot();
    if (last < 0) return QAbstractScrollArea::keyPressEvent(event);
    const auto beside = [&](int direction) {
        return now < 0 ? 0 : static_cast<int>(chart_.dotBeside(static_cast<std::size_t>(now), direction));
    };
    switch (event->key()) {
        case Qt::Key_Right:
            return setCurrentDot(std::min(now + 1, last));
        case Qt::Key_Left:
            return setCurrentDot(std::max(now - 1, 0));
        case Qt::Key_Down:
            return setCurrentDot(beside(1));
        case Qt::Key_Up:
            return setCurrentDot(beside(-1));
        case Qt::Key_Home:
            return setCurrentDot(0);
        case Qt::Key_End:
            return setCurrentDot(last);
        default:
            QAbstractScrollArea::keyPressEvent(event);
    }
}

void ChartView::mousePressEvent(QMouseEvent* event) {
    const QPointF at = event->position() + QPointF(0, verticalScrollBar()->value());
    if (const auto dot = chart_.dotAt(at.x(), at.y())) setCurrentDot(static_cast<int>(*dot));
}

void ChartView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    if (current_) setCurrentDot(currentDot());
    viewport()->update();
}

bool ChartView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const auto dot = chart_.dotAt(help->pos().x(), help->pos().y() + verticalScrollBar()->value());
    if (dot)
        QToolTip::showText(help->globalPos(), textOf(static_cast<int>(*dot)).toHtmlEscaped(), viewport());
    else
        QToolTip::hideText();
    return true;
}

void ChartView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    layOutAnew();
}

void ChartView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) layOutAnew();
}

void ChartView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    const int scrolled = verticalScrollBar()->value();
    painter.translate(0, -scrolled);
    paintScale(painter);
    const auto [first, end] = chart_.rowsBetween(event->rect().top() + scrolled, event->rect().bottom() + scrolled);
    for (std::size_t row = first; row < end; ++row) paintRow(painter, chart_.rows[row]);
    if (current_) paintDot(painter, chart_.dots[*current_], true);
}

void ChartView::paintScale(QPainter& painter) const {
    if (rows_.empty()) return;
    const QPalette& colours = palette();
    const double letters = chart_.letter * 8;
    for (const ChartTick& tick : chart_.ticks) {
        painter.setPen(QPen(colours.color(QPalette::Mid), 1, Qt::DotLine));
        painter.drawLine(QPointF(tick.x, 0), QPointF(tick.x, chart_.axis));
        painter.setPen(colours.color(QPalette::Text));
        painter.drawText(QRectF(tick.x - letters, chart_.axis + 2, 2 * letters, chart_.line), Qt::AlignHCenter,
                         shown(tick.text));
    }
    painter.drawLine(QPointF(chart_.left, chart_.axis), QPointF(chart_.right, chart_.axis));
    painter.drawText(QRectF(chart_.left, chart_.axis + chart_.line * 1.3, chart_.right - chart_.left, chart_.line),
                     Qt::AlignHCenter, tr(kAxisTitle));
}

void ChartView::paintRow(QPainter& painter, const ChartRow& row) const {
    const QPalette& colours = palette();
    const double middle = (row.top + row.bottom) / 2;
    const QRectF label(chart_.letter, middle - chart_.line, chart_.left - 2 * chart_.letter, chart_.line);
    painter.setPen(colours.color(QPalette::Text));
    painter.drawText(label, Qt::AlignLeft | Qt::AlignVCenter, shown(row.label));
    painter.setPen(inkColour(Ink::Grey));
    painter.drawText(label.translated(0, chart_.line), Qt::AlignLeft | Qt::AlignVCenter, shown(row.demo));
    QRectF bar;
    if (row.interval) {
        bar = QRectF(row.interval->first, middle - chart_.line * 0.3,
                     std::max(1.0, row.interval->second - row.interval->first), chart_.line * 0.6);
        QColor ground = colours.color(QPalette::Highlight);
        ground.setAlphaF(0.35F);
        painter.fillRect(bar, ground);
    }
    for (std::size_t i = row.firstDot; i < row.firstDot + row.dots; ++i) paintDot(painter, chart_.dots[i], false);
    // Many dots hide the bar, but not its outline.
    painter.setPen(colours.color(QPalette::Text));
    painter.setBrush(Qt::NoBrush);
    if (row.interval) painter.drawRect(bar);
    if (!row.median) return;
    painter.setPen(QPen(colours.color(QPalette::Text), 2));
    painter.drawLine(QPointF(*row.median, middle - chart_.line), QPointF(*row.median, middle + chart_.line));
}

void ChartView::paintDot(QPainter& painter, const ChartDot& dot, bool current) const {
    const QColor ink = inkColour(dot.kind == ChartDot::Kind::Outlier      ? Ink::Red
                                 : dot.kind == ChartDot::Kind::NotCounted ? Ink::Grey
                                                                          : Ink::Blue);
    const bool filled = dot.kind == ChartDot::Kind::Good;
    painter.setPen(QPen(ink, 1.6, dot.kind == ChartDot::Kind::SlowFirst ? Qt::DotLine : Qt::SolidLine));
    painter.setBrush(filled ? QBrush(ink) : Qt::NoBrush);
    const QPointF at(dot.x, dot.y);
    if (dot.kind == ChartDot::Kind::NotCounted) {
        const double side = chart_.radius * 0.8;
        painter.drawLine(at + QPointF(-side, -side), at + QPointF(side, side));
        painter.drawLine(at + QPointF(-side, side), at + QPointF(side, -side));
    } else {
        painter.drawEllipse(at, chart_.radius, chart_.radius);
    }
    if (!current) return;
    painter.setPen(QPen(palette().color(QPalette::Text), hasFocus() ? 2 : 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(at, chart_.radius * 2, chart_.radius * 2);
}

}  // namespace gatehouse
