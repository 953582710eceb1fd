#pragma once

#include <QQuickImageProvider>

namespace tidewell {

// Our symbols for QML, drawn in any colour: "image://symbol/<name>/<#aarrggbb>" (the '#' may
// be left out), at the requested size, 16 x 16 when none is asked for.
class SymbolImageProvider : public QQuickImageProvider {
public:
    SymbolImageProvider();
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace tidewell
