#include "gui/images/RoundedImageProvider.h"

#include <QBrush>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>
#include <QUrl>
#include <algorithm>

namespace tidewell {

RoundedImageProvider::RoundedImageProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage RoundedImageProvider::requestImage(const QString& id, QSize* size,
                                          const QSize& requestedSize) {
    const qsizetype slash = id.indexOf(QLatin1Char('/'));
    const qreal cornerShare = id.left(slash).toDouble();
    QImageReader reader(QUrl(id.mid(slash + 1)).toLocalFile());
    const QSize target = requestedSize.isValid() ? requestedSize : reader.size();
    if (!target.isValid())
        return {};
    // Decoded at the size shown where the format can, then cropped to fill.
    if (reader.size().isValid())
        reader.setScaledSize(reader.size().scaled(target, Qt::KeepAspectRatioByExpanding));
    const QImage picture = reader.read();
    if (picture.isNull())
        return {};
    const QSize shown = picture.size().scaled(target, Qt::KeepAspectRatioByExpanding);
    QBrush fill(picture.scaled(shown, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    fill.setTransform(QTransform::fromTranslate((target.width() - shown.width()) / 2,
                                                (target.height() - shown.height()) / 2));
    QImage rounded(target, QImage::Format_ARGB32_Premultiplied);
    rounded.fill(Qt::transparent);
    QPainter painter(&rounded);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath square;
    const qreal radius = cornerShare * std::min(target.width(), target.height());
    square.addRoundedRect(QRectF(QPointF(), target), radius, radius);
    painter.fillPath(square, fill);
    painter.end();
    *size = rounded.size();
    return rounded;
}

} // namespace tidewell
