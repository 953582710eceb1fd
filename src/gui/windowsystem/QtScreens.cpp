#include "gui/windowsystem/QtScreens.h"

#include "core/notify/InterfaceNotificationNames.h"
#include "core/notify/NotificationCenter.h"
#include "gui/windowsystem/ScreenCoordinates.h"

#include <QGuiApplication>
#include <QScreen>

namespace tidewell {
namespace {

QList<QScreen*> screensPrimaryFirst() {
    QList<QScreen*> screens = QGuiApplication::screens();
    QScreen* primary = QGuiApplication::primaryScreen();
    if (screens.removeOne(primary))
        screens.prepend(primary);
    return screens;
}

} // namespace

QtScreens::QtScreens(NotificationCenter& localCenter) : localCenter_(localCenter) {
    for (QScreen* screen : QGuiApplication::screens())
        observe(screen);
    auto* application = qGuiApp;
    QObject::connect(application, &QGuiApplication::screenAdded, &context_,
                     [this](QScreen* screen) {
                         observe(screen);
                         announceChange();
                     });
    QObject::connect(application, &QGuiApplication::screenRemoved, &context_,
                     [this] { announceChange(); });
    QObject::connect(application, &QGuiApplication::primaryScreenChanged, &context_,
                     [this] { announceChange(); });
}

std::vector<Display> QtScreens::all() const {
    const QRect primary = primaryScreenGeometry();
    std::vector<Display> displays;
    for (const QScreen* screen : screensPrimaryFirst()) {
        Display display;
        display.frame = coreRect(screen->geometry(), primary);
        display.visibleFrame = coreRect(screen->availableGeometry(), primary);
        display.backingScale = screen->devicePixelRatio();
        displays.push_back(display);
    }
    return displays;
}

void QtScreens::observe(QScreen* screen) {
    QObject::connect(screen, &QScreen::geometryChanged, &context_, [this] { announceChange(); });
    QObject::connect(screen, &QScreen::availableGeometryChanged, &context_,
                     [this] { announceChange(); });
}

void QtScreens::announceChange() {
    localCenter_.post(screenParametersDidChange);
}

QRect primaryScreenGeometry() {
    const QScreen* primary = QGuiApplication::primaryScreen();
    return primary ? primary->geometry() : QRect();
}

Point corePointFromRoot(int x, int y) {
    std::vector<ScreenScale> scales;
    for (const QScreen* screen : screensPrimaryFirst())
        scales.push_back({screen->geometry(), screen->devicePixelRatio()});
    return corePixel({x, y}, scales, primaryScreenGeometry());
}

QRect rootPixelsFromCore(const Rect& rect) {
    const QRectF logical = qtRect(rect, primaryScreenGeometry());
    const QScreen* screen = QGuiApplication::screenAt(logical.center().toPoint());
    const qreal ratio = screen ? screen->devicePixelRatio() : 1;
    const QPointF origin = screen ? QPointF(screen->geometry().topLeft()) : QPointF();
    const QRectF native(origin + (logical.topLeft() - origin) * ratio, logical.size() * ratio);
    return native.toAlignedRect();
}

QRect rootRectFromCore(const Rect& rect) {
    return rootPixelsFromCore(rect).adjusted(-1, -1, 1, 1);
}

} // namespace tidewell
