#pragma once

#include <QColor>
#include <QString>

namespace tidewell {

// An item's tint text as a colour: whatever the text gives, unreadable text included.
QColor tintColor(const QString& tintHex);
// A colour as tint text: a number sign and six upper-case hexadecimal digits.
QString tintHex(const QColor& color);

} // namespace tidewell
