#include "gui/ShelfView.h"

#include "core/icons/IconCache.h"
#include "core/items/DataFolder.h"
#include "gui/FavoritesModel.h"
#include "gui/ShelfActions.h"
#include "gui/ShelfBridge.h"
#include "gui/SymbolImageProvider.h"
#include "linux/PosixFileSystem.h"
#include "linux/XdgPaths.h"

#include <QCoreApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickView>

namespace tidewell {

struct ShelfView::Bridges {
    explicit Bridges(const Services& services)
        : shelf(services.layout, services.appearance),
          favorites(services.store,
                    IconCache(files, DataFolder(XdgPaths::userPaths()).iconsFolder()),
                    QCoreApplication::applicationDirPath()),
          actions({services.store, services.tileActions, services.localCenter},
                  services.openSettings) {}

    QQuickView* view = nullptr;
    PosixFileSystem files;
    ShelfBridge shelf;
    FavoritesModel favorites;
    ShelfActions actions;
};

ShelfView::ShelfView(QQuickView& view, Services services)
    : bridges_(std::make_unique<Bridges>(services)) {
    bridges_->view = &view;
    connect(&bridges_->shelf, &ShelfBridge::outlineReported, this, &ShelfView::outlineChanged);
    QQmlEngine& engine = *view.engine();
    engine.addImageProvider(QStringLiteral("symbol"), new SymbolImageProvider);
    QQmlContext& context = *view.rootContext();
    context.setContextProperty(QStringLiteral("shelf"), &bridges_->shelf);
    context.setContextProperty(QStringLiteral("favorites"), &bridges_->favorites);
    context.setContextProperty(QStringLiteral("shelfActions"), &bridges_->actions);
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setSource(QUrl(QStringLiteral("qrc:/qml/NotchShelfView.qml")));
    for (const QQmlError& error : view.errors())
        qWarning().noquote() << "Shelf view:" << error.toString();
}

// The QML goes first: its bindings read the bridges.
ShelfView::~ShelfView() {
    bridges_->view->setSource({});
    bridges_->view->engine()->removeImageProvider(QStringLiteral("symbol"));
}

} // namespace tidewell
