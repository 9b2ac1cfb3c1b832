#include "window/widgets/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

static void registerIcons() { Q_INIT_RESOURCE(icons); }

namespace gatehouse {

namespace {

/// Paints a drawing in the palette's colour of the moment: a change of the palette needs no new icon.
class PaletteIconEngine : public QIconEngine {
public:
    explicit PaletteIconEngine(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QColor ink = colourFor(mode);
        if (ink != ink_) {
            loadPicture(renderer_, name_, ink.name());
            ink_ = ink;
        }
        const int side = qMin(rect.width(), rect.height());
        QRectF square(0, 0, side, side);
        square.moveCenter(QRectF(rect).center());
        renderer_.render(painter, square);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return new PaletteIconEngine(name_); }

private:
    static QColor colourFor(QIcon::Mode mode) {
        const QPalette palette = QGuiApplication::palette();
        if (mode == QIcon::Disabled) return palette.color(QPalette::Disabled, QPalette::ButtonText);
        return palette.color(QPalette::Active,
                             mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText);
    }

    QString name_;
    QColor ink_;
    QSvgRenderer renderer_;
};

}  // namespace

QIcon icon(const QString& name) { return QIcon(new PaletteIconEngine(name)); }

bool hasPicture(const QString& name) {
    registerIcons();
    return QFile::exists(":/icons/" + name + ".svg");
}

void loadPicture(QSvgRenderer& renderer, const QString& name, const QString& ink) {
    registerIcons();
    QFile file(":/icons/" + name + ".svg");
    const bool opened = file.open(QIODevice::ReadOnly);
    Q_ASSERT(opened);
    if (opened) renderer.load(file.readAll().replace("currentColor", ink.toLatin1()));
}

}  // namespace gatehouse
