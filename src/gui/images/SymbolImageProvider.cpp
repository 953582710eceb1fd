#include "gui/images/SymbolImageProvider.h"

#include <QPainter>
#include <QSvgRenderer>

namespace tidewell {

SymbolImageProvider::SymbolImageProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage SymbolImageProvider::requestImage(const QString& id, QSize* size,
                                         const QSize& requestedSize) {
    const qsizetype slash = id.lastIndexOf('/');
    const QString name = id.left(slash);
    QString colorText = id.mid(slash + 1);
    if (!colorText.startsWith('#'))
        colorText.prepend('#');
    const QSize pixels(requestedSize.width() > 0 ? requestedSize.width() : 16,
                       requestedSize.height() > 0 ? requestedSize.height() : 16);
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(QStringLiteral(":/symbols/%1.svg").arg(name));
    if (slash > 0 && renderer.isValid()) {
        QPainter painter(&image);
        renderer.render(&painter);
        // Keeps the symbol's coverage and paints it in the colour asked for.
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), QColor::fromString(colorText));
    }
    if (size)
        *size = pixels;
    return image;
}

} // namespace tidewell
