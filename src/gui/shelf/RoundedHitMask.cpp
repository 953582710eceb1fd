#include "gui/shelf/RoundedHitMask.h"

#include "core/shelf/RoundedHitShape.h"

namespace tidewell {

bool RoundedHitMask::contains(const QPointF& point) const {
    return RoundedHitShape::contains({width_, height_}, radius_, {point.x(), point.y()});
}

} // namespace tidewell
