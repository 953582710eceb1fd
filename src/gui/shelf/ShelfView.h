#pragma once

#include "core/platform/Geometry.h"

#include <QObject>
#include <QRectF>
#include <functional>
#include <memory>

class QQuickView;

namespace tidewell {

class AppearanceSettings;
class BackgroundQueue;
class FileSystem;
class IconCache;
class ItemStore;
class MainQueue;
class NotificationCenter;
class PanelWindow;
class Pointer;
class ShelfLayout;
class TileActions;

// The shelf drawn in the panel's Qt Quick view: the merged background, the tiles and their
// menus, bound through thin bridges to the layout, the store and the preferences.
class ShelfView : public QObject {
    Q_OBJECT
public:
    struct Services {
        ShelfLayout& layout;
        ItemStore& store;
        AppearanceSettings& appearance;
        TileActions& tileActions;
        // Tile menus post the menu-tracking notifications here.
        NotificationCenter& localCenter;
        const IconCache& iconCache;
        // What drags and drops on the shelf reach: folders dropped are looked at on
        // background threads.
        const Pointer& pointer;
        const PanelWindow& panel;
        const FileSystem& files;
        BackgroundQueue& background;
        MainQueue& queue;
        std::function<void()> openSettings;
    };

    // Loads the shelf into `view`; the shelf's frame starts panelShadowMargin pixels from the
    // view's left edge, at its top.
    ShelfView(QQuickView& view, Services services);
    ~ShelfView() override;

    // Every pointer movement, in points from the primary display's bottom-left.
    void pointerMoved(Point screenPoint);

signals:
    // The outline as drawn at this moment, in the view's logical pixels, whenever it changes
    // (also during animations): the window's shape follows it.
    void outlineChanged(const QRectF& rect, qreal topRadius, qreal bottomRadius);

private:
    struct Bridges;
    std::unique_ptr<Bridges> bridges_;
};

} // namespace tidewell
