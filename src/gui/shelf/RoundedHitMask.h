#pragma once

#include <QObject>
#include <QPointF>

namespace tidewell {

// A rounded rectangle as an item's hit shape (its containmentMask): pointer positions in the
// cut-off corners miss.
class RoundedHitMask : public QObject {
    Q_OBJECT
    Q_PROPERTY(qreal width MEMBER width_)
    Q_PROPERTY(qreal height MEMBER height_)
    Q_PROPERTY(qreal radius MEMBER radius_)

public:
    using QObject::QObject;

    Q_INVOKABLE bool contains(const QPointF& point) const;

private:
    qreal width_ = 0;
    qreal height_ = 0;
    qreal radius_ = 0;
};

} // namespace tidewell
