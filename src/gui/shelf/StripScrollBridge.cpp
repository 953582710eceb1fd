#include "gui/shelf/StripScrollBridge.h"

namespace tidewell {

StripScrollBridge::StripScrollBridge(ShelfLayout& layout)
    : scroll_(layout), connection_(scroll_.changed.connect([this] { emit offsetChanged(); })) {}

qreal StripScrollBridge::offset() const {
    return scroll_.offset();
}

void StripScrollBridge::setExtent(qreal contentWidth, qreal viewWidth) {
    scroll_.setExtent(contentWidth, viewWidth);
}

void StripScrollBridge::wheel(QPointF angleDelta) {
    scroll_.wheel(angleDelta.x(), angleDelta.y());
}

void StripScrollBridge::reveal(qreal left, qreal right) {
    scroll_.reveal(left, right);
}

} // namespace tidewell
