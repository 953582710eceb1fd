#pragma once

#include "core/observe/Signal.h"
#include "core/shelf/Animation.h"
#include "core/shelf/MergedBackground.h"

#include <QObject>
#include <QRectF>
#include <QSizeF>
#include <QVariantList>
#include <QVariantMap>

namespace tidewell {

class AppearanceSettings;
class ShelfLayout;

// What the shelf's QML reads from the layout and the preferences: the flags and sizes, the
// merged background as core decides it, and the animation for each change. An animation
// is published as {curve: [x1, y1, x2, y2, 1, 1], duration: ms}, ready for a Bézier easing.
class ShelfBridge : public QObject {
    Q_OBJECT
    Q_PROPERTY(int shadowMargin READ shadowMargin CONSTANT)
    Q_PROPERTY(qreal topInset READ topInset NOTIFY layoutChanged)
    Q_PROPERTY(bool isExpanded READ isExpanded NOTIFY layoutChanged)
    Q_PROPERTY(bool isBackgroundExpanded READ isBackgroundExpanded NOTIFY layoutChanged)
    Q_PROPERTY(QSizeF collapsedSize READ collapsedSize NOTIFY layoutChanged)
    Q_PROPERTY(QSizeF expandedSize READ expandedSize NOTIFY layoutChanged)
    Q_PROPERTY(QSizeF backgroundSize READ backgroundSize NOTIFY layoutChanged)
    Q_PROPERTY(qreal topRadius READ topRadius NOTIFY layoutChanged)
    Q_PROPERTY(qreal bottomRadius READ bottomRadius NOTIFY layoutChanged)
    Q_PROPERTY(bool isGlass READ isGlass NOTIFY appearanceChanged)
    Q_PROPERTY(bool hasShadow READ hasShadow NOTIFY appearanceChanged)
    Q_PROPERTY(qreal shadowOpacity READ shadowOpacity NOTIFY appearanceChanged)
    Q_PROPERTY(qreal shadowBlur READ shadowBlur NOTIFY appearanceChanged)
    Q_PROPERTY(QPointF shadowOffset READ shadowOffset NOTIFY appearanceChanged)
    Q_PROPERTY(QVariantMap sizeTransition READ sizeTransition NOTIFY transitionChanged)
    Q_PROPERTY(QVariantMap fadeTransition READ fadeTransition NOTIFY transitionChanged)
    Q_PROPERTY(QVariantMap slotTransition READ slotTransition CONSTANT)
    Q_PROPERTY(QVariantMap hoverTransition READ hoverTransition CONSTANT)
public:
    ShelfBridge(ShelfLayout& layout, AppearanceSettings& appearance);

    int shadowMargin() const;
    qreal topInset() const;
    bool isExpanded() const;
    bool isBackgroundExpanded() const;
    QSizeF collapsedSize() const;
    QSizeF expandedSize() const;
    QSizeF backgroundSize() const { return {background_.size.width, background_.size.height}; }
    qreal topRadius() const { return background_.shape.topCornerRadius; }
    qreal bottomRadius() const { return background_.shape.bottomCornerRadius; }
    bool isGlass() const { return background_.fill == MergedBackground::Fill::translucentGlass; }
    bool hasShadow() const { return background_.shadow.has_value(); }
    qreal shadowOpacity() const;
    qreal shadowBlur() const;
    QPointF shadowOffset() const;
    QVariantMap sizeTransition() const { return published(sizeTransition_); }
    QVariantMap fadeTransition() const { return published(fadeTransition_); }
    // Tiles entering and leaving the strip.
    QVariantMap slotTransition() const;
    QVariantMap hoverTransition() const;

    // The outline's drawing steps in a rectangle at the origin, for the background's path:
    // a list of {x, y, controlX, controlY}.
    Q_INVOKABLE QVariantList outlinePath(qreal width, qreal height, qreal topRadius,
                                         qreal bottomRadius) const;
    // The background tells where it drew the outline, in the view's coordinates.
    Q_INVOKABLE void reportOutline(qreal x, qreal y, qreal width, qreal height, qreal topRadius,
                                   qreal bottomRadius);

signals:
    // The transitions change first, so that the size changes after them animate with them.
    void transitionChanged();
    void layoutChanged();
    void appearanceChanged();
    void outlineReported(const QRectF& rect, qreal topRadius, qreal bottomRadius);

private:
    static QVariantMap published(const Animation& animation);
    MergedBackground decide() const;
    void followLayout();

    ShelfLayout& layout_;
    AppearanceSettings& appearance_;
    MergedBackground background_;
    bool wasBackgroundExpanded_;
    Size lastExpandedSize_;
    Animation sizeTransition_;
    Animation fadeTransition_;
    Connection layoutConnection_;
    Connection appearanceConnection_;
};

} // namespace tidewell
