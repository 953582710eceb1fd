#include "gui/shelf/ShelfView.h"

#include "core/drag/ShelfDragReset.h"
#include "core/drag/ShelfDragState.h"
#include "core/drag/ShelfDropContext.h"
#include "gui/images/ImageProviders.h"
#include "gui/shelf/FavoritesModel.h"
#include "gui/shelf/RoundedHitMask.h"
#include "gui/shelf/ShelfActions.h"
#include "gui/shelf/ShelfBridge.h"
#include "gui/shelf/ShelfDropArea.h"
#include "gui/shelf/ShelfDrops.h"
#include "gui/shelf/ShelfToolTip.h"
#include "gui/shelf/StripScrollBridge.h"
#include "gui/shelf/TileDragView.h"
#include "linux/CurrentApplicationLocation.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickView>
#include <QtQml>

namespace tidewell {

struct ShelfView::Bridges {
    explicit Bridges(const Services& services)
        : shelf(services.layout, services.appearance),
          favorites(services.store, services.iconCache,
                    QString::fromStdString(currentApplicationLocation().dataFolder)),
          actions({services.store, services.tileActions, services.localCenter, services.appearance},
                  services.openSettings),
          dropContext{.store = services.store,
                      .layout = services.layout,
                      .state = dragState,
                      .pointer = services.pointer,
                      .files = services.files,
                      .background = services.background,
                      .mainQueue = services.queue,
                      .panel = services.panel},
          dragReset(services.layout, dragState), drops(dropContext), stripScroll(services.layout) {}

    QQuickView* view = nullptr;
    ShelfBridge shelf;
    FavoritesModel favorites;
    ShelfActions actions;
    ShelfDragState dragState;
    ShelfDropContext dropContext;
    ShelfDragReset dragReset;
    ShelfDrops drops;
    StripScrollBridge stripScroll;
};

namespace {

void registerShelfTypes() {
    static const bool registered = [] {
        constexpr const char* module = "Tidewell";
        qmlRegisterType<ShelfDropArea>(module, 1, 0, "ShelfDropArea");
        qmlRegisterType<TileDragView>(module, 1, 0, "TileDragView");
        qmlRegisterType<ShelfToolTip>(module, 1, 0, "ShelfToolTip");
        qmlRegisterType<RoundedHitMask>(module, 1, 0, "RoundedHitShape");
        qmlRegisterUncreatableType<ShelfDrops>(module, 1, 0, "ShelfDrops",
                                               QStringLiteral("The shelf makes its own."));
        return true;
    }();
    Q_UNUSED(registered);
}

} // namespace

ShelfView::ShelfView(QQuickView& view, Services services)
    : bridges_(std::make_unique<Bridges>(services)) {
    bridges_->view = &view;
    connect(&bridges_->shelf, &ShelfBridge::outlineReported, this, &ShelfView::outlineChanged);
    registerShelfTypes();
    addImageProviders(*view.engine());
    QQmlContext& context = *view.rootContext();
    context.setContextProperty(QStringLiteral("shelf"), &bridges_->shelf);
    context.setContextProperty(QStringLiteral("favorites"), &bridges_->favorites);
    context.setContextProperty(QStringLiteral("shelfActions"), &bridges_->actions);
    context.setContextProperty(QStringLiteral("shelfDrops"), &bridges_->drops);
    context.setContextProperty(QStringLiteral("stripScroll"), &bridges_->stripScroll);
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setSource(QUrl(QStringLiteral("qrc:/qml/NotchShelfView.qml")));
    for (const QQmlError& error : view.errors())
        qWarning().noquote() << "Shelf view:" << error.toString();
}

// The QML goes first: its bindings read the bridges.
ShelfView::~ShelfView() {
    bridges_->view->setSource({});
    removeImageProviders(*bridges_->view->engine());
}

void ShelfView::pointerMoved(Point screenPoint) {
    bridges_->drops.pointerMoved(screenPoint);
}

} // namespace tidewell
