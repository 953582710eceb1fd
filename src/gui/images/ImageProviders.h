#pragma once

class QQmlEngine;

namespace tidewell {

// What the QML of the shelf and of the settings draws with: the symbol and rounded-picture
// image providers of an engine, and the soft shadow item.
void addImageProviders(QQmlEngine& engine);
void removeImageProviders(QQmlEngine& engine);

} // namespace tidewell
