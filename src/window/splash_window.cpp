#include "window/splash_window.h"

#include "base/run_state.h"
#include "platform/qt/shown_text.h"
#include "startup/views.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/follow.h"
#include "window/widgets/icons.h"
#include "window/widgets/twips.h"

#include <QGuiApplication>
#include <QPainter>
#include <QProgressBar>
#include <QScreen>
#include <QSvgRenderer>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kMargin = 14;
constexpr int kTitleLeft = 40;
constexpr int kTitleBase = 150;

/// The picture `Image1`, with the program's name and version written on it.
class SplashPicture : public QWidget {
public:
    SplashPicture(const RunState& run, QWidget* parent) : QWidget(parent), run_(run) {
        setObjectName("Image1");
        setAccessibleName("Gatehouse");
        QSvgRenderer drawing;
        loadPicture(drawing, "splash");
        const int width = pixels(kSplashExtent) + 2 * kMargin;
        setFixedSize(drawing.defaultSize().scaled(width, width, Qt::KeepAspectRatio));
        // Drawn once: each line of the log repaints the splash.
        picture_ = QPixmap(size() * devicePixelRatioF());
        picture_.setDevicePixelRatio(devicePixelRatioF());
        QPainter painter(&picture_);
        drawing.render(&painter, QRectF(rect()));
    }

    /// Paints anew once the version is known.
    void showVersion() {
        if (run_.VersionString != version_) update();
        version_ = run_.VersionString;
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawPixmap(0, 0, picture_);
        QFont title = font();
        title.setPixelSize(52);
        title.setBold(true);
        painter.setFont(title);
        painter.setPen(QColor("#f5efe2"));
        painter.drawText(kTitleLeft, kTitleBase, "Gatehouse");
        QFont small = font();
        small.setPixelSize(16);
        painter.setFont(small);
        painter.setPen(QColor("#f2c27c"));
        painter.drawText(kTitleLeft + 3, kTitleBase + 32, tr("Settings and servers for Quake 3: Arena"));
        painter.drawText(kTitleLeft + 3, kTitleBase + 56, versionLine());
    }

private:
    /// The version is known a few steps after the splash is on show.
    QString versionLine() const {
        return run_.VersionString.empty() ? QString() : tr("Version %1").arg(shown(run_.VersionString));
    }

    const RunState& run_;
    std::string version_;
    QPixmap picture_;
};

}  // namespace

SplashWindow::SplashWindow(SplashView& view, const RunState& run)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName("q3splash");
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, kMargin);
    column->setSpacing(kMargin / 2);
    column->setSizeConstraint(QLayout::SetFixedSize);
    auto* picture = new SplashPicture(run, this);
    column->addWidget(picture);
    listen(picture, view.splashmsg.changed, [picture] { picture->showVersion(); });
    auto* lower = new QVBoxLayout;
    lower->setContentsMargins(kMargin, kMargin / 2, kMargin, 0);
    column->addLayout(lower);
    addProgress(*lower, view);
    addTexts(*lower, view);
    follow(this, view.visible, [this](bool visible) { visible ? showCentred() : hide(); });
}

void SplashWindow::addProgress(QBoxLayout& column, SplashView& view) {
    auto* splashbar = new QProgressBar(this);
    splashbar->setObjectName("splashbar");
    splashbar->setAccessibleName(tr("Progress"));
    splashbar->setRange(0, kSplashExtent);
    splashbar->setTextVisible(false);
    splashbar->setFixedSize(pixels(kSplashExtent), 8);
    column.addWidget(splashbar);
    // The extent steps a little beyond its end before it starts again.
    follow(splashbar, view.splashbar,
           [splashbar](int extent) { splashbar->setValue(qBound(0, extent, kSplashExtent)); });
}

void SplashWindow::addTexts(QBoxLayout& column, SplashView& view) {
    auto* splashmsg = new ElidedLabel(Qt::ElideMiddle, this);
    splashmsg->setObjectName("splashmsg");
    auto* files = new QLabel(this);
    files->setObjectName("files");
    files->setTextFormat(Qt::PlainText);
    auto* row = new QHBoxLayout;
    row->addWidget(splashmsg, 1);
    row->addWidget(files);
    column.addLayout(row);
    follow(splashmsg, view.splashmsg, [splashmsg](const std::string& text) { splashmsg->setText(shown(text)); });
    follow(splashmsg, view.splashmsgCentred, [splashmsg](bool centred) {
        splashmsg->setAlignment((centred ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter);
    });
    follow(files, view.files, [files](const std::string& text) {
        files->setText(shown(text));
        files->setVisible(!text.empty());
    });
}

void SplashWindow::showCentred() {
    adjustSize();
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    move(area.center() - rect().center());
    show();
}

}  // namespace gatehouse
