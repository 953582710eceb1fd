#pragma once

#include <QQuickImageProvider>

namespace tidewell {

// A picture file cut to a rounded square for QML, the same on every scene-graph backend:
// "image://rounded/<corner radius as a share of the side>/<file URL>". The picture fills the
// requested size (its own when none is asked for) and is cropped to it, centred.
class RoundedImageProvider : public QQuickImageProvider {
public:
    RoundedImageProvider();
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace tidewell
