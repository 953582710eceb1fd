#include "LayerPopup.h"

#include "LayerSurface.h"

#include <QWindow>
#include <QtWaylandClient/private/qwaylanddisplay_p.h>
#include <QtWaylandClient/private/qwaylandinputdevice_p.h>
#include <QtWaylandClient/private/qwaylandwindow_p.h>
#include <algorithm>
#include <qpa/qwindowsysteminterface.h>

namespace tidewell {

using namespace QtWaylandClient;

LayerPopup::LayerPopup(XdgWmBase& wmBase, QWaylandShellSurface& parent, QWaylandWindow* window)
    : QWaylandShellSurface(window), QtWayland::xdg_surface(wmBase.get_xdg_surface(wlSurface())),
      parentPosition_(parent.window()->window()->position()) {
    const QSize parentSize = parent.window()->window()->size();
    const QRect geometry = window->window()->geometry();
    // The positioner's anchor must lie on the parent: the window's place relative to it,
    // kept inside.
    const QPoint anchor = geometry.topLeft() - parentPosition_;
    QtWayland::xdg_positioner positioner(wmBase.create_positioner());
    positioner.set_size(geometry.width(), geometry.height());
    positioner.set_anchor_rect(std::clamp(anchor.x(), 0, std::max(parentSize.width() - 1, 0)),
                               std::clamp(anchor.y(), 0, std::max(parentSize.height() - 1, 0)), 1,
                               1);
    positioner.set_anchor(QtWayland::xdg_positioner::anchor_top_left);
    positioner.set_gravity(QtWayland::xdg_positioner::gravity_bottom_right);
    positioner.set_constraint_adjustment(QtWayland::xdg_positioner::constraint_adjustment_slide_x |
                                         QtWayland::xdg_positioner::constraint_adjustment_slide_y |
                                         QtWayland::xdg_positioner::constraint_adjustment_flip_y);
    auto* parentPopup = dynamic_cast<LayerPopup*>(&parent);
    popup_.init(get_popup(parentPopup ? parentPopup->object() : nullptr, positioner.object()));
    positioner.destroy();
    QWaylandInputDevice* seat = window->display()->lastInputDevice();
    if (window->window()->type() == Qt::Popup && seat)
        popup_.grab(seat->wl_seat(), getSerial(seat));
    if (auto* layer = dynamic_cast<LayerSurface*>(&parent))
        layer->get_popup(popup_.object());
    // Qt leaves a tooltip's input region whole: emptied, the pointer stays on the shelf.
    if (window->window()->flags() & Qt::WindowTransparentForInput) {
        wl_region* nothing = window->display()->createRegion(QRegion());
        wl_surface_set_input_region(wlSurface(), nothing);
        wl_region_destroy(nothing);
    }
}

LayerPopup::~LayerPopup() {
    popup_.destroy();
    destroy();
}

void LayerPopup::xdg_surface_configure(uint32_t serial) {
    ack_configure(serial);
    if (!configured_) {
        configured_ = true;
        applyConfigureWhenPossible();
    }
}

void LayerPopup::applyConfigure() {
    repositionFromApplyConfigure(parentPosition_ + position_);
    window()->window()->requestUpdate();
}

void LayerPopup::Popup::xdg_popup_configure(int32_t x, int32_t y, int32_t, int32_t) {
    owner_.position_ = QPoint(x, y);
}

// Queued: closing now would delete this popup inside its own event.
void LayerPopup::Popup::xdg_popup_popup_done() {
    QWindowSystemInterface::handleCloseEvent(owner_.window()->window());
}

} // namespace tidewell
