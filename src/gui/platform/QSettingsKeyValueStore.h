#pragma once

#include "core/platform/KeyValueStore.h"

#include <QSettings>

namespace tidewell {

// The preferences in the user's configuration folder: $XDG_CONFIG_HOME/Tidewell/Tidewell.conf
// (by default ~/.config/Tidewell/Tidewell.conf), an INI file. Each write reaches the file
// at once, so a crash loses nothing the user chose.
class QSettingsKeyValueStore : public KeyValueStore {
public:
    QSettingsKeyValueStore();

    std::optional<std::string> string(const std::string& key) const override;
    // The file keeps Booleans as the text "true" or "false".
    std::optional<bool> boolean(const std::string& key) const override;
    void setString(const std::string& key, const std::string& value) override;
    void setBoolean(const std::string& key, bool value) override;

private:
    void write(const std::string& key, const QVariant& value);

    QSettings settings_;
};

} // namespace tidewell
