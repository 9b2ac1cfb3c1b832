#include "window/preview_window.h"

#include "content/preview.h"
#include "platform/qt/shown_text.h"
#include "window/widgets/follow.h"
#include "window/widgets/picture_view.h"
#include "window/widgets/twips.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kMargin = 6;
constexpr int kTitleBar = 36;  // room for what the window manager draws around a window

}  // namespace

PreviewWindow::PreviewWindow(Preview& preview, QWidget* main)
    : QWidget(main, Qt::Tool | Qt::WindowDoesNotAcceptFocus), preview_(preview) {
    setObjectName("q3levelshot");
    setAttribute(Qt::WA_ShowWithoutActivating);
    makeContent();
    follow(this, preview.caption, [this](const std::string& text) {
        setWindowTitle(shownTitle(text));
        picture_->setAccessibleName(shown(text));
    });
    follow(this, preview.sizes, [this](const PreviewSizes&) { takeSizes(); });
    follow(this, preview.q3levelshot, [this](bool on) {
        if (on) placeBeside();
        setVisible(on);
    });
}

void PreviewWindow::makeContent() {
    auto* view = new PictureView(preview_.levelshot, this);
    view->setObjectName("levelshot");
    picture_ = view;
    auto* none = new QLabel(tr("There is no picture of it."), this);
    none->setObjectName("noPicture");
    follow(none, preview_.noPicture, [none](bool on) { none->setVisible(on); });
    auto* zoom = new QPushButton(tr("Zoom"), this);
    zoom->setObjectName("zoom");
    zoom->setToolTip(tr("A larger picture, or the smallest again (Ctrl++)"));
    zoom->setFocusPolicy(Qt::NoFocus);
    connect(zoom, &QPushButton::clicked, this, [this] { preview_.zoom_Click(); });
    follow(zoom, preview_.sizes, [zoom](const PreviewSizes& sizes) { zoom->setVisible(sizes.zoom); });

    auto* below = new QHBoxLayout;
    below->setContentsMargins(kMargin, 0, kMargin, 0);
    below->addWidget(none);
    below->addStretch(1);
    below->addWidget(zoom);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, kMargin, 0, kMargin);
    column->addWidget(picture_, 0, Qt::AlignHCenter);
    column->addLayout(below, 1);
}

void PreviewWindow::takeSizes() {
    const PreviewSizes& sizes = preview_.sizes.get();
    if (sizes.width == 0) return;
    picture_->setFixedSize(pixels(sizes.pictureWidth), pixels(sizes.pictureHeight));
    setFixedSize(pixels(sizes.width), pixels(sizes.height) - kTitleBar);
    if (!isVisible()) return;
    // Who has moved it wants it there.
    const bool moved = (pos() - placed_).manhattanLength() > kTitleBar;
    moved ? keepOnScreen() : placeBeside();
}

QRect PreviewWindow::room() const {
    return parentWidget()->screen()->availableGeometry().adjusted(0, 0, 0, -kTitleBar);
}

void PreviewWindow::placeBeside() {
    const QRect main = parentWidget()->frameGeometry();
    const bool fitsOnTheLeft = main.left() - width() >= room().left();
    const bool fitsOnTheRight = main.right() + 1 + width() <= room().right() + 1;
    move(!fitsOnTheRight && fitsOnTheLeft ? main.left() - width() : main.right() + 1, main.top());
    keepOnScreen();
    placed_ = pos();
}

void PreviewWindow::keepOnScreen() {
    const QRect area = room();
    const int mostLeft = qMax(area.left(), area.right() + 1 - frameGeometry().width());
    const int mostTop = qMax(area.top(), area.bottom() + 1 - height());
    move(qBound(area.left(), x(), mostLeft), qBound(area.top(), y(), mostTop));
}

void PreviewWindow::closeEvent(QCloseEvent* event) {
    // It goes by the preview's own word; a window never goes inside its own event.
    event->ignore();
    preview_.hide();
}

}  // namespace gatehouse
