#include "LayerShellIntegration.h"

#include "LayerSurface.h"
#include "gui/windowsystem/wayland/LayerSurfaceProperty.h"

#include <QWindow>
#include <QtWaylandClient/private/qwaylandshellintegrationfactory_p.h>
#include <QtWaylandClient/private/qwaylandwindow_p.h>

namespace tidewell {

using namespace QtWaylandClient;

LayerShellIntegration::LayerShellIntegration() : QWaylandShellIntegrationTemplate(4) {}

LayerShellIntegration::~LayerShellIntegration() {
    if (isInitialized() &&
        QtWayland::zwlr_layer_shell_v1::version() >= ZWLR_LAYER_SHELL_V1_DESTROY_SINCE_VERSION)
        destroy();
}

bool LayerShellIntegration::initialize(QWaylandDisplay* display) {
    QWaylandShellIntegrationTemplate::initialize(display);
    windows_.reset(QWaylandShellIntegrationFactory::create(QStringLiteral("xdg-shell"), display));
    return windows_ != nullptr;
}

QWaylandShellSurface* LayerShellIntegration::createShellSurface(QWaylandWindow* window) {
    if (isActive() && window->window()->property(layerSurfaceProperty).toBool())
        return new LayerSurface(*this, window);
    return windows_->createShellSurface(window);
}

void* LayerShellIntegration::nativeResourceForWindow(const QByteArray& resource, QWindow* window) {
    return windows_->nativeResourceForWindow(resource, window);
}

} // namespace tidewell
