#include "gui/windowsystem/PanelView.h"

#include "gui/windowsystem/PanelMargins.h"
#include "gui/windowsystem/QtScreens.h"
#include "gui/windowsystem/ScreenCoordinates.h"

#include <QQuickView>
#include <QSurfaceFormat>

namespace tidewell {

void setUpPanelView(QQuickView& view) {
    view.setFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                  Qt::WindowDoesNotAcceptFocus | Qt::Tool);
    // What window lists, accessibility tools and tests see.
    view.setTitle("Tidewell Shelf");
    QSurfaceFormat format = view.format();
    format.setAlphaBufferSize(8);
    view.setFormat(format);
    view.setColor(Qt::transparent);
    view.setResizeMode(QQuickView::SizeRootObjectToView);
}

QRect panelWindowRect(const Rect& frame) {
    const QRectF shelf = qtRect(frame, primaryScreenGeometry());
    return shelf.adjusted(-panelShadowMargin, 0, panelShadowMargin, panelShadowMargin).toRect();
}

} // namespace tidewell
