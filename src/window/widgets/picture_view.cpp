#include "window/widgets/picture_view.h"

#include "window/widgets/follow.h"

#include <QPainter>

namespace gatehouse {

namespace {

/// A view of the picture's own memory.
QImage imageOf(const Picture& picture) {
    return {reinterpret_cast<const uchar*>(picture.argb.data()), picture.width, picture.height,
            picture.width * static_cast<qsizetype>(sizeof picture.argb[0]), QImage::Format_RGB32};
}

}  // namespace

PictureView::PictureView(Observable<std::shared_ptr<const Picture>>& picture, QWidget* parent)
    : QWidget(parent), picture_(picture) {
    follow(this, picture, [this](const std::shared_ptr<const Picture>&) {
        scaled_ = {};
        update();
    });
}

const QPixmap& PictureView::scaled() {
    const Picture& picture = *picture_.get();
    const QSize wanted = QSize(picture.width, picture.height)
                             .scaled(size() * devicePixelRatioF(), Qt::KeepAspectRatio)
                             .expandedTo({1, 1});
    if (scaled_.size() != wanted) {
        scaled_ = QPixmap::fromImage(imageOf(picture).scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        scaled_.setDevicePixelRatio(devicePixelRatioF());
    }
    return scaled_;
}

void PictureView::paintEvent(QPaintEvent*) {
    if (!picture_.get()) return;
    QPainter painter(this);
    const QSizeF area = scaled().deviceIndependentSize();
    painter.drawPixmap(QPointF((width() - area.width()) / 2, (height() - area.height()) / 2), scaled_);
}

}  // namespace gatehouse
