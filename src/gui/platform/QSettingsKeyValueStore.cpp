#include "gui/platform/QSettingsKeyValueStore.h"

namespace tidewell {
namespace {

constexpr const char* organisationAndApplication = "Tidewell";

QString keyText(const std::string& key) {
    return QString::fromStdString(key);
}

} // namespace

QSettingsKeyValueStore::QSettingsKeyValueStore()
    : settings_(organisationAndApplication, organisationAndApplication) {}

std::optional<std::string> QSettingsKeyValueStore::string(const std::string& key) const {
    const QVariant value = settings_.value(keyText(key));
    if (!value.isValid())
        return std::nullopt;
    return value.toString().toStdString();
}

std::optional<bool> QSettingsKeyValueStore::boolean(const std::string& key) const {
    const QVariant value = settings_.value(keyText(key));
    if (!value.isValid())
        return std::nullopt;
    return value.toBool();
}

void QSettingsKeyValueStore::setString(const std::string& key, const std::string& value) {
    write(key, QString::fromStdString(value));
}

void QSettingsKeyValueStore::setBoolean(const std::string& key, bool value) {
    write(key, value);
}

void QSettingsKeyValueStore::write(const std::string& key, const QVariant& value) {
    settings_.setValue(keyText(key), value);
    settings_.sync();
}

} // namespace tidewell
