#include "gui/images/SoftShadow.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QtQml>
#include <cmath>
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

SoftShadow::SoftShadow(QQuickItem* parent) : QQuickPaintedItem(parent) {
    connect(this, &SoftShadow::shapeChanged, this, [this] { update(); });
}

qreal SoftShadow::margin() const {
    return std::ceil(blur_ + std::max(std::abs(offset_.x()), std::abs(offset_.y())));
}

void SoftShadow::paint(QPainter* painter) {
    const qreal scale = window() ? window()->effectiveDevicePixelRatio() : 1;
    QImage image((QSizeF(width(), height()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return;
    image.fill(Qt::transparent);
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
    {
        QPainter shadow(&image);
        shadow.setRenderHint(QPainter::Antialiasing);
        shadow.scale(scale, scale);
        shadow.translate(QPointF(margin(), margin()) + offset_);
        shadow.fillPath(shape, color_);
    }
    // The same spread as the blur radius of the toolkit's own shadow effect.
    blur(image, (blur_ + 1) / 3.3333 * scale);
    painter->drawImage(QRectF(0, 0, width(), height()), image);
}

void registerSoftShadow() {
    static const bool registered = [] {
        qmlRegisterType<SoftShadow>("Tidewell", 1, 0, "SoftShadow");
        return true;
    }();
    Q_UNUSED(registered);
}

} // namespace tidewell
