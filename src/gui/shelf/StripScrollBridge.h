#pragma once

#include "core/observe/Signal.h"
#include "core/shelf/StripScroll.h"

#include <QObject>
#include <QPointF>

namespace tidewell {

class ShelfLayout;

// The strip's sideways scrolling for the QML: the offset core keeps, and what moves it.
class StripScrollBridge : public QObject {
    Q_OBJECT
    Q_PROPERTY(qreal offset READ offset NOTIFY offsetChanged)
public:
    explicit StripScrollBridge(ShelfLayout& layout);

    qreal offset() const;

    Q_INVOKABLE void setExtent(qreal contentWidth, qreal viewWidth);
    // A wheel event's angle delta.
    Q_INVOKABLE void wheel(QPointF angleDelta);
    // The span of the tiles that a drop is about, from the strip's first tile.
    Q_INVOKABLE void reveal(qreal left, qreal right);

signals:
    void offsetChanged();

private:
    StripScroll scroll_;
    Connection connection_;
};

} // namespace tidewell
