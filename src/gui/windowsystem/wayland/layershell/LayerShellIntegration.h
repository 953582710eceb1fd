#pragma once

#include "LayerPopup.h"
#include "qwayland-wlr-layer-shell-unstable-v1.h"

#include <QtWaylandClient/private/qwaylandshellintegration_p.h>
#include <memory>

namespace tidewell {

// Gives windows marked with the layer-surface property a layer surface, menus and tooltips
// opened from one a popup of it, and every other window to Qt's own xdg-shell integration,
// since a process has one shell integration.
class LayerShellIntegration
    : public QtWaylandClient::QWaylandShellIntegrationTemplate<LayerShellIntegration>,
      public QtWayland::zwlr_layer_shell_v1 {
public:
    LayerShellIntegration();
    ~LayerShellIntegration() override;

    bool initialize(QtWaylandClient::QWaylandDisplay* display) override;
    QtWaylandClient::QWaylandShellSurface*
    createShellSurface(QtWaylandClient::QWaylandWindow* window) override;
    void* nativeResourceForWindow(const QByteArray& resource, QWindow* window) override;

private:
    QtWaylandClient::QWaylandShellSurface* layerParentOf(QtWaylandClient::QWaylandWindow* popup);

    XdgWmBase wmBase_;
    std::unique_ptr<QtWaylandClient::QWaylandShellIntegration> windows_;
};

} // namespace tidewell
