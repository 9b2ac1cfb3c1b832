// The measure for starting times: a Qt program that makes what any such program makes, and leaves at once, or with
// --show when its window is closed.

#include <QApplication>
#include <QTimer>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    if (application.arguments().contains(QStringLiteral("--show")))
        window.show();
    else
        QTimer::singleShot(0, &application, &QApplication::quit);
    return QApplication::exec();
}
