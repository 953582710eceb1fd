#include "gui/images/SoftShadow.h"

#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QtQml>
#include <cmath>
#include <functional>
#include <mutex>
#include <vector>

namespace tidewell {

namespace {

// One pass of a box blur over a row or column of premultiplied pixels, with running sums.
void blurLine(uchar* first, int count, int stride, int radius, std::vector<int>& line) {
    const int window = 2 * radius + 1;
    for (int channel = 0; channel < 4; ++channel) {
        line.assign(count, 0);
        int sum = 0;
        for (int index = -radius - 1; index < count; ++index) {
            const int entering = index + radius;
            const int leaving = index - radius - 1;
            if (entering < count && entering >= 0)
                sum += first[entering * stride + channel];
            if (leaving >= 0)
                sum -= first[leaving * stride + channel];
            if (index >= 0)
                line[index] = sum / window;
        }
        for (int index = 0; index < count; ++index)
            first[index * stride + channel] = static_cast<uchar>(line[index]);
    }
}

// Three box blurs come close to a Gaussian of the given deviation.
void blur(QImage& image, qreal deviation) {
    const int radius =
        static_cast<int>(std::lround((std::sqrt(4 * deviation * deviation + 1) - 1) / 2));
    if (radius < 1)
        return;
    std::vector<int> line;
    const int rowStride = static_cast<int>(image.bytesPerLine());
    for (int pass = 0; pass < 3; ++pass) {
        for (int y = 0; y < image.height(); ++y)
            blurLine(image.scanLine(y), image.width(), 4, radius, line);
        for (int x = 0; x < image.width(); ++x)
            blurLine(image.bits() + 4 * x, image.height(), rowStride, radius, line);
    }
}

QPointF pointOf(const QVariant& step, const char* x, const char* y) {
    const QVariantMap values = step.toMap();
    return {values.value(x).toReal(), values.value(y).toReal()};
}

} // namespace

SoftShadow::SoftShadow(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    connect(this, &SoftShadow::shapeChanged, this, [this] {
        isDirty_ = true;
        update();
    });
}

qreal SoftShadow::margin() const {
    return std::ceil(blur_ + std::max(std::abs(offset_.x()), std::abs(offset_.y())));
}

void SoftShadow::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size()) {
        isDirty_ = true;
        update();
    }
}

// Everything the picture is made from.
QString SoftShadow::key(QSize pixels, qreal scale) const {
    QString key = QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8")
                      .arg(pixels.width())
                      .arg(pixels.height())
                      .arg(scale)
                      .arg(color_.rgba())
                      .arg(blur_)
                      .arg(offset_.x())
                      .arg(offset_.y())
                      .arg(cornerRadius_);
    for (const QVariant& step : steps_)
        for (const QVariant& value : step.toMap())
            key += QLatin1Char(' ') + QString::number(value.toReal());
    return key;
}

QImage SoftShadow::picture(QSize pixels, qreal scale) const {
    QPainterPath shape;
    if (steps_.isEmpty()) {
        const qreal grown = 2 * margin();
        shape.addRoundedRect(0, 0, width() - grown, height() - grown, cornerRadius_, cornerRadius_);
    } else {
        shape.moveTo(pointOf(steps_.front(), "x", "y"));
        for (qsizetype index = 1; index < steps_.size(); ++index) {
            const QPointF point = pointOf(steps_[index], "x", "y");
            if (index % 2 == 1)
                shape.quadTo(pointOf(steps_[index], "controlX", "controlY"), point);
            else
                shape.lineTo(point);
        }
    }
    return shadowPicture({.shape = shape,
                          .pixels = pixels,
                          .scale = scale,
                          .origin = QPointF(margin(), margin()) + offset_,
                          .color = color_,
                          .blur = blur_});
}

QImage SharedShadowPictures::find(const QString& key, const std::function<QImage()>& make) {
    const std::lock_guard lock(mutex_);
    auto found = pictures_.find(key);
    if (found == pictures_.end())
        found = pictures_.insert(key, make());
    return found.value();
}

void SharedShadowPictures::dropUnused() {
    const std::lock_guard lock(mutex_);
    pictures_.removeIf([](const auto& entry) { return entry.value().isDetached(); });
}

QImage shadowPicture(const ShadowShape& shadow) {
    QImage image(shadow.pixels, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(shadow.scale, shadow.scale);
        painter.translate(shadow.origin);
        painter.fillPath(shadow.shape, shadow.color);
    }
    // The same spread as the blur radius of the toolkit's own shadow effect.
    blur(image, (shadow.blur + 1) / 3.3333 * shadow.scale);
    // A picture keeps the engine that painted it for as long as it lives; a copy has none.
    return image.copy();
}

QSGNode* SoftShadow::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    const qreal scale = window()->effectiveDevicePixelRatio();
    const QSize pixels = (size() * scale).toSize();
    // A shadow of no colour (the black look's) keeps no picture.
    if (pixels.isEmpty() || color_.alpha() == 0) {
        delete node;
        isDirty_ = true;
        return nullptr;
    }
    auto* image = static_cast<QSGImageNode*>(node);
    if (!image) {
        image = window()->createImageNode();
        image->setOwnsTexture(true);
        isDirty_ = true;
    }
    if (isDirty_) {
        image->setTexture(window()->createTextureFromImage(SharedShadowPictures::find(
            key(pixels, scale), [&] { return picture(pixels, scale); })));
        SharedShadowPictures::dropUnused();
        isDirty_ = false;
    }
    image->setRect(boundingRect());
    return image;
}

void registerSoftShadow() {
    static const bool registered = [] {
        qmlRegisterType<SoftShadow>("Tidewell", 1, 0, "SoftShadow");
        return true;
    }();
    Q_UNUSED(registered);
}

} // namespace tidewell
