#include "LayerSurface.h"

#include "gui/windowsystem/wayland/LayerSurfaceProperty.h"

#include <QWindow>
#include <QtWaylandClient/private/qwaylandscreen_p.h>
#include <QtWaylandClient/private/qwaylandwindow_p.h>
#include <qpa/qwindowsysteminterface.h>

namespace tidewell {

using namespace QtWaylandClient;

namespace {

QtWayland::zwlr_layer_shell_v1::layer layerOf(QWaylandWindow* window) {
    return window->window()->property(layerSurfaceProperty).toString() == QLatin1String("top")
               ? QtWayland::zwlr_layer_shell_v1::layer_top
               : QtWayland::zwlr_layer_shell_v1::layer_overlay;
}

wl_output* outputOf(QWaylandWindow* window) {
    QWaylandScreen* screen = window->waylandScreen();
    return screen && !screen->isPlaceholder() ? screen->output() : nullptr;
}

} // namespace

LayerSurface::LayerSurface(QtWayland::zwlr_layer_shell_v1& shell, QWaylandWindow* window)
    : QWaylandShellSurface(window), QtWayland::zwlr_layer_surface_v1(shell.get_layer_surface(
                                        window->wlSurface(), outputOf(window), layerOf(window),
                                        QStringLiteral("tidewell"))) {
    set_anchor(anchor_top);
    set_exclusive_zone(-1);
    set_keyboard_interactivity(keyboard_interactivity_none);
    setWindowGeometry(window->windowContentGeometry());
}

LayerSurface::~LayerSurface() {
    destroy();
}

void LayerSurface::setWindowGeometry(const QRect& rect) {
    set_size(uint32_t(rect.width()), uint32_t(rect.height()));
}

void LayerSurface::zwlr_layer_surface_v1_configure(uint32_t serial, uint32_t width,
                                                   uint32_t height) {
    ack_configure(serial);
    configuredSize_ = QSize(int(width), int(height));
    if (!configured_) {
        configured_ = true;
        applyConfigureWhenPossible();
    }
}

void LayerSurface::applyConfigure() {
    if (!configuredSize_.isEmpty())
        resizeFromApplyConfigure(configuredSize_);
    window()->window()->requestUpdate();
}

// Queued: closing now would delete this surface inside its own event.
void LayerSurface::zwlr_layer_surface_v1_closed() {
    QWindowSystemInterface::handleCloseEvent(window()->window());
}

} // namespace tidewell
