#include "gui/images/TintColor.h"

#include "core/items/Color.h"

namespace tidewell {

QColor tintColor(const QString& tintHex) {
    const Color color = Color::fromNotchHex(tintHex.toStdString());
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue));
}

// From the 8-bit channels, as the tint text was read: a colour read from text gives the
// same text back.
QString tintHex(const QColor& color) {
    const QColor rgb = color.toRgb();
    return QString::fromStdString(
        Color{rgb.red() / 255.0, rgb.green() / 255.0, rgb.blue() / 255.0}.notchHex());
}

} // namespace tidewell
