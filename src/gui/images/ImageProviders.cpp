#include "gui/images/ImageProviders.h"

#include "gui/images/DrawnProjectIcon.h"
#include "gui/images/RoundedImageProvider.h"
#include "gui/images/SoftShadow.h"
#include "gui/images/SymbolImageProvider.h"

#include <QQmlEngine>

namespace tidewell {

void addImageProviders(QQmlEngine& engine) {
    registerSoftShadow();
    registerDrawnProjectIcon();
    engine.addImageProvider(QStringLiteral("symbol"), new SymbolImageProvider);
    engine.addImageProvider(QStringLiteral("rounded"), new RoundedImageProvider);
}

void removeImageProviders(QQmlEngine& engine) {
    engine.removeImageProvider(QStringLiteral("symbol"));
    engine.removeImageProvider(QStringLiteral("rounded"));
}

} // namespace tidewell
