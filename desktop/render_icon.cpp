// Draws an SVG into a square PNG, for the sizes of icons that desktops ask for.
// Usage: render_icon DRAWING.svg SIDE PICTURE.png

#include <QImage>
#include <QPainter>
#include <QStringList>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments += QString::fromLocal8Bit(argv[i]);
    const int side = arguments.value(2).toInt();
    QSvgRenderer drawing(arguments.value(1));
    if (arguments.size() != 4 || side < 1 || side > 1024 || !drawing.isValid()) {
        std::fputs("usage: render_icon DRAWING.svg SIDE PICTURE.png\n", stderr);
        return 2;
    }
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        drawing.render(&painter);
    }
    return picture.save(arguments[3]) ? 0 : 1;
}
