#include "gui/shelf/ShelfBridge.h"

#include "core/settings/AppearanceSettings.h"
#include "core/shelf/NotchTransition.h"
#include "core/shelf/ShelfLayout.h"
#include "core/shelf/TileHover.h"
#include "gui/windowsystem/PanelMargins.h"

namespace tidewell {

namespace {

QSizeF toQt(Size size) {
    return {size.width, size.height};
}

QVariantMap step(const PathElement& element) {
    return {{"x", element.point.x},
            {"y", element.point.y},
            {"controlX", element.control.x},
            {"controlY", element.control.y}};
}

const Animation& fadeFor(bool isExpanded) {
    return isExpanded ? NotchTransition::contentFadeIn : NotchTransition::contentFadeOut;
}

} // namespace

ShelfBridge::ShelfBridge(ShelfLayout& layout, AppearanceSettings& appearance)
    : layout_(layout), appearance_(appearance), background_(decide()),
      wasBackgroundExpanded_(layout.isBackgroundExpanded()),
      lastExpandedSize_(layout.expandedSize()),
      sizeTransition_(MergedBackground::resizeAnimation()),
      fadeTransition_(fadeFor(layout.isExpanded())) {
    layoutConnection_ = layout_.changed.connect([this] { followLayout(); });
    appearanceConnection_ = appearance_.changed.connect([this] {
        background_ = decide();
        emit appearanceChanged();
    });
}

MergedBackground ShelfBridge::decide() const {
    return MergedBackground::decide(layout_.isBackgroundExpanded(), layout_.expandedSize(),
                                    layout_.collapsedSize(), appearance_.shelfAppearance());
}

void ShelfBridge::followLayout() {
    const bool isBackgroundExpanded = layout_.isBackgroundExpanded();
    if (isBackgroundExpanded != wasBackgroundExpanded_)
        sizeTransition_ = MergedBackground::expansionAnimation(isBackgroundExpanded);
    else if (layout_.expandedSize() != lastExpandedSize_)
        sizeTransition_ = MergedBackground::resizeAnimation();
    fadeTransition_ = fadeFor(layout_.isExpanded());
    wasBackgroundExpanded_ = isBackgroundExpanded;
    lastExpandedSize_ = layout_.expandedSize();
    background_ = decide();
    emit transitionChanged();
    emit layoutChanged();
}

int ShelfBridge::shadowMargin() const {
    return panelShadowMargin;
}

qreal ShelfBridge::topInset() const {
    return layout_.topInset();
}

bool ShelfBridge::isExpanded() const {
    return layout_.isExpanded();
}

bool ShelfBridge::isBackgroundExpanded() const {
    return layout_.isBackgroundExpanded();
}

QSizeF ShelfBridge::collapsedSize() const {
    return toQt(layout_.collapsedSize());
}

QSizeF ShelfBridge::expandedSize() const {
    return toQt(layout_.expandedSize());
}

qreal ShelfBridge::shadowOpacity() const {
    return background_.shadow ? background_.shadow->opacity : 0;
}

qreal ShelfBridge::shadowBlur() const {
    return background_.shadow ? background_.shadow->blurRadius : 0;
}

QPointF ShelfBridge::shadowOffset() const {
    return background_.shadow ? QPointF(background_.shadow->offsetX, background_.shadow->offsetY)
                              : QPointF();
}

QVariantMap ShelfBridge::slotTransition() const {
    return published(NotchTransition::resize);
}

QVariantMap ShelfBridge::hoverTransition() const {
    return published(TileHover::fade);
}

QVariantMap ShelfBridge::published(const Animation& animation) {
    return {{"curve", QVariantList{animation.x1, animation.y1, animation.x2, animation.y2, 1, 1}},
            {"duration", static_cast<int>(animation.duration.count())}};
}

QVariantList ShelfBridge::outlinePath(qreal width, qreal height, qreal topRadius,
                                      qreal bottomRadius) const {
    QVariantList steps;
    for (const PathElement& element : NotchMergeShape{topRadius, bottomRadius}.path(
             0, 0, std::max(width, 0.0), std::max(height, 0.0)))
        steps.append(step(element));
    return steps;
}

void ShelfBridge::reportOutline(qreal x, qreal y, qreal width, qreal height, qreal topRadius,
                                qreal bottomRadius) {
    emit outlineReported(QRectF(x, y, width, height), topRadius, bottomRadius);
}

} // namespace tidewell
