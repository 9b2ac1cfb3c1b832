// The measure for starting times: a Qt program that makes what any such program makes, shows a window if asked to, and
// leaves.

#include <QApplication>
#include <QTimer>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    if (application.arguments().contains(QStringLiteral("--show"))) window.show();
    QTimer::singleShot(0, &application, &QApplication::quit);
    return QApplication::exec();
}
