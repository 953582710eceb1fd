#pragma once

#include "qwayland-wlr-layer-shell-unstable-v1.h"

#include <QSize>
#include <QtWaylandClient/private/qwaylandshellsurface_p.h>

namespace tidewell {

// A window as a layer surface of its screen's output, on the layer its layer-surface property
// names: anchored to the top edge only, so the compositor centres it, never moved by panels'
// zones and never given the keyboard. Its size is the window's.
class LayerSurface : public QtWaylandClient::QWaylandShellSurface,
                     public QtWayland::zwlr_layer_surface_v1 {
public:
    LayerSurface(QtWayland::zwlr_layer_shell_v1& shell, QtWaylandClient::QWaylandWindow* window);
    ~LayerSurface() override;

    bool isExposed() const override { return configured_; }
    void applyConfigure() override;
    void setWindowGeometry(const QRect& rect) override;

protected:
    void zwlr_layer_surface_v1_configure(uint32_t serial, uint32_t width, uint32_t height) override;
    void zwlr_layer_surface_v1_closed() override;

private:
    bool configured_ = false;
    QSize configuredSize_;
};

} // namespace tidewell
