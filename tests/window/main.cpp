#include "platform/qt/guarded_application.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    gatehouse::QtEventLoop events;
    gatehouse::GuardedApplication<QApplication> application(events, argc, argv);
    QApplication::setStyle("Fusion");
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
