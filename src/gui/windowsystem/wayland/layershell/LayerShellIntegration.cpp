#include "LayerShellIntegration.h"

#include "LayerSurface.h"
#include "gui/windowsystem/wayland/LayerSurfaceProperty.h"

#include <QWindow>
#include <QtGui/private/qguiapplication_p.h>
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
    for (const QWaylandDisplay::RegistryGlobal& global : display->globals()) {
        if (global.interface == QLatin1String(QtWayland::xdg_wm_base::interface()->name))
            wmBase_.init(global.registry, int(global.id), 1);
    }
    windows_.reset(QWaylandShellIntegrationFactory::create(QStringLiteral("xdg-shell"), display));
    return windows_ != nullptr;
}

QWaylandShellSurface* LayerShellIntegration::createShellSurface(QWaylandWindow* window) {
    if (isActive() && window->window()->property(layerSurfaceProperty).isValid())
        return new LayerSurface(*this, window);
    if (QWaylandShellSurface* parent = layerParentOf(window))
        return new LayerPopup(wmBase_, *parent, window);
    return windows_->createShellSurface(window);
}

QWaylandShellSurface* LayerShellIntegration::layerParentOf(QWaylandWindow* popup) {
    const Qt::WindowType type = popup->window()->type();
    // A layer surface never has the focus, so Qt finds no parent for a menu or tooltip opened
    // from it without one: the window under the pointer, else the one last clicked, is it.
    QWaylandWindow* parent = popup->transientParent();
    if (QWindow* hovered = QGuiApplicationPrivate::currentMouseWindow; !parent && hovered)
        parent = static_cast<QWaylandWindow*>(hovered->handle());
    if (!parent)
        parent = popup->display()->lastInputWindow();
    if ((type != Qt::Popup && type != Qt::ToolTip) || !parent || !wmBase_.isInitialized())
        return nullptr;
    QWaylandShellSurface* surface = parent->shellSurface();
    return dynamic_cast<LayerSurface*>(surface) || dynamic_cast<LayerPopup*>(surface) ? surface
                                                                                      : nullptr;
}

void* LayerShellIntegration::nativeResourceForWindow(const QByteArray& resource, QWindow* window) {
    return windows_->nativeResourceForWindow(resource, window);
}

} // namespace tidewell
