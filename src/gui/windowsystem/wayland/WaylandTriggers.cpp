#include "gui/windowsystem/wayland/WaylandTriggers.h"

#include "gui/windowsystem/QtScreens.h"
#include "gui/windowsystem/ScreenCoordinates.h"
#include "gui/windowsystem/wayland/LayerSurfaceProperty.h"

#include <QGuiApplication>
#include <QPainter>
#include <QRasterWindow>
#include <QScreen>

namespace tidewell {
namespace {

class TriggerWindow : public QRasterWindow {
public:
    explicit TriggerWindow(QScreen* screen) {
        setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::Tool);
        setTitle("Tidewell Trigger");
        QSurfaceFormat format = this->format();
        format.setAlphaBufferSize(8);
        setFormat(format);
        setScreen(screen);
        setProperty(layerSurfaceProperty, QStringLiteral("top"));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
    }
};

} // namespace

WaylandTriggers::WaylandTriggers(std::function<void(QWindow&)> watch) : watch_(std::move(watch)) {
    for (QScreen* screen : QGuiApplication::screens())
        add(screen);
    connect(qApp, &QGuiApplication::screenAdded, this, &WaylandTriggers::add);
    connect(qApp, &QGuiApplication::screenRemoved, this,
            [this](QScreen* screen) { windows_.erase(screen); });
}

WaylandTriggers::~WaylandTriggers() = default;

void WaylandTriggers::add(QScreen* screen) {
    auto window = std::make_unique<TriggerWindow>(screen);
    watch_(*window);
    place(screen, *window);
    connect(screen, &QScreen::geometryChanged, window.get(),
            [this, screen, window = window.get()] { place(screen, *window); });
    windows_[screen] = std::move(window);
}

void WaylandTriggers::setInterest(const PointerInterest& interest) {
    if (interest.everywhere)
        return;
    interest_ = interest;
    for (const auto& [screen, window] : windows_)
        place(screen, *window);
}

// The trigger whose centre is on the screen; none yet, or none there, leaves the window hidden.
void WaylandTriggers::place(QScreen* screen, QWindow& window) {
    for (const Rect& region : interest_.regions) {
        const QRect rect = qtRect(region, primaryScreenGeometry()).toAlignedRect();
        if (!screen->geometry().contains(rect.center()))
            continue;
        window.setGeometry(rect);
        window.show();
        return;
    }
    window.hide();
}

} // namespace tidewell
