// The yardstick for the application benchmark: the least a Qt Quick program needs to show a
// black bar of twenty named tiles at the top centre of the screen when the pointer gets
// there, with the same pointer monitor as the application.
#include "gui/windowsystem/x11/PointerEventMonitor.h"

#include <QGuiApplication>
#include <QQuickView>
#include <QScreen>

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    QQuickView view;
    view.setFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                  Qt::WindowDoesNotAcceptFocus | Qt::Tool);
    view.setColor(Qt::transparent);
    view.setSource(QUrl("qrc:/bench/MinimalBar.qml"));
    const QRect screen = application.primaryScreen()->geometry();
    view.setGeometry(screen.center().x() - 500, 0, 1000, 72);
    tidewell::PointerEventMonitor monitor([&](double x, double y, unsigned) {
        const bool atTop = y < 32 && std::abs(x - screen.center().x()) < 100;
        if (atTop && !view.isVisible())
            view.show();
        else if (y > 200 && view.isVisible())
            view.hide();
    });
    if (!monitor.start())
        return 1;
    return application.exec();
}
