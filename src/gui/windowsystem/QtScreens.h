#pragma once

#include "core/platform/Display.h"

#include <QObject>
#include <QRect>
#include <QRectF>

class QScreen;

namespace tidewell {

class NotificationCenter;

// The displays as Qt sees them, primary first. Qt reports no camera housing and no safe
// area, so those stay empty. Posts screenParametersDidChange to the local centre whenever a
// screen comes or goes, the primary changes, or a screen's geometry or available geometry
// changes. Main thread only.
class QtScreens : public Displays {
public:
    explicit QtScreens(NotificationCenter& localCenter);

    std::vector<Display> all() const override;

private:
    void observe(QScreen* screen);
    void announceChange();

    NotificationCenter& localCenter_;
    // Owns the connections, which end with it.
    QObject context_;
};

// The primary screen's geometry, empty without screens.
QRect primaryScreenGeometry();
// A root-window pixel, as the X server reports it, in the shelf's points.
Point corePointFromRoot(int x, int y);
// The root-window pixels that a rectangle in the shelf's points covers.
QRect rootPixelsFromCore(const Rect& rect);
// The same and one more all round.
QRect rootRectFromCore(const Rect& rect);

} // namespace tidewell
