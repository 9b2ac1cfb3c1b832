#include "window/widgets/previews.h"

#include "platform/qt/shown_text.h"
#include "window/widgets/follow.h"
#include "window/widgets/icons.h"

#include <QFontDatabase>
#include <QPainter>

namespace gatehouse {

namespace {

/// Neither black nor white nor blue may drown in it.
constexpr QColor kGround(104, 110, 122);
constexpr QColor kFrame(70, 76, 88);
constexpr int kMargin = 4;
constexpr int kCorner = 4;
/// Sides of the patches, in lines of text.
constexpr double kPatchLines = 2.6;

QColor paint(const Colour& colour) { return {colour.red, colour.green, colour.blue}; }

void paintGround(QPainter& painter, const QRect& area, const QColor& ground) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(kFrame);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
}

QFont cellFont(const QWidget& widget) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(widget.font().pointSizeF());
    font.setBold(true);
    return font;
}

QSize patchSize(const QWidget& widget) {
    const int side = static_cast<int>(kPatchLines * widget.fontMetrics().lineSpacing());
    return {side, side};
}

}  // namespace

NamePreview::NamePreview(Observable<NameCells>& nc) : nc_(nc) {
    setObjectName("nc");
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAccessibleName(tr("Name in the game"));
    follow(this, nc, [this](const NameCells& cells) {
        std::string name;
        for (const NameCell& cell : cells) name += cell.character;
        setAccessibleDescription(shown(name).trimmed());
        update();
    });
}

QSize NamePreview::sizeHint() const {
    const QFontMetrics metrics(cellFont(*this));
    const int cells = static_cast<int>(kNameCells);
    return {cells * metrics.horizontalAdvance('W') + 2 * kMargin, metrics.height() + 2 * kMargin};
}

void NamePreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintGround(painter, rect(), kGround);
    const QFont font = cellFont(*this);
    const QFontMetrics metrics(font);
    const int width = metrics.horizontalAdvance('W');
    const int baseline = (height() + metrics.ascent() - metrics.descent()) / 2;
    int left = kMargin;
    painter.setFont(font);
    for (const NameCell& cell : nc_.get()) {
        painter.setPen(paint(cell.colour));
        painter.drawText(left, baseline, shown(std::string(1, cell.character)));
        left += width;
    }
}

CrosshairPreview::CrosshairPreview(Observable<int>& chpic) {
    setObjectName("chpic");
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(tr("Crosshair in the game"));
    follow(this, chpic, [this](int number) {
        const QString name = "crosshair-" + QString::number(number);
        there_ = hasPicture(name);
        if (there_) loadPicture(picture_, name, "#f4f4f4");
        update();
    });
}

QSize CrosshairPreview::sizeHint() const { return patchSize(*this); }

void CrosshairPreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintGround(painter, rect(), kGround);
    if (there_) picture_.render(&painter, QRectF(rect()).adjusted(kMargin, kMargin, -kMargin, -kMargin));
}

ColourPreview::ColourPreview(Observable<Colour>& fxpreview) : fxpreview_(fxpreview) {
    setObjectName("fxpreview");
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(tr("Colour of the effects"));
    follow(this, fxpreview, [this](const Colour& colour) {
        setAccessibleDescription(paint(colour).name());
        update();
    });
}

QSize ColourPreview::sizeHint() const { return patchSize(*this); }

void ColourPreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintGround(painter, rect(), paint(fxpreview_.get()));
}

}  // namespace gatehouse
