#pragma once

#include "qwayland-xdg-shell.h"

#include <QPoint>
#include <QtWaylandClient/private/qwaylandshellsurface_p.h>

namespace tidewell {

class LayerSurface;

// The xdg-shell global as popups of layer surfaces need it (Qt's own binding is private to its
// xdg-shell integration).
class XdgWmBase : public QtWayland::xdg_wm_base {
protected:
    void xdg_wm_base_ping(uint32_t serial) override { pong(serial); }
};

// A menu or tooltip opened from a layer surface (or from such a menu): an xdg popup without an
// xdg parent, given to the layer surface, or a child of the parent menu; placed where the window
// asks relative to it (the compositor slides or flips it to stay on the output). Menus grab the
// pointer, so that a click elsewhere closes them.
class LayerPopup : public QtWaylandClient::QWaylandShellSurface, public QtWayland::xdg_surface {
public:
    // The parent is a LayerSurface or a LayerPopup.
    LayerPopup(XdgWmBase& wmBase, QtWaylandClient::QWaylandShellSurface& parent,
               QtWaylandClient::QWaylandWindow* window);
    ~LayerPopup() override;

    bool isExposed() const override { return configured_; }
    void applyConfigure() override;

protected:
    void xdg_surface_configure(uint32_t serial) override;

private:
    class Popup : public QtWayland::xdg_popup {
    public:
        explicit Popup(LayerPopup& owner) : owner_(owner) {}

    protected:
        void xdg_popup_configure(int32_t x, int32_t y, int32_t width, int32_t height) override;
        void xdg_popup_popup_done() override;

    private:
        LayerPopup& owner_;
    };

    QPoint parentPosition_;
    QPoint position_;
    bool configured_ = false;
    Popup popup_{*this};
};

} // namespace tidewell
