#include "gui/settings/SettingsBridge.h"

#include "core/settings/SettingsView.h"
#include "gui/settings/EnumCaseNames.h"

#include <QFile>

namespace tidewell {

namespace {

QString caption(const std::optional<std::string>& text) {
    return text ? QString::fromStdString(*text) : QString();
}

} // namespace

SettingsBridge::SettingsBridge(SettingsView& view, AppearanceSettings& appearance, ItemStore& store)
    : view_(view), appearance_(appearance) {
    viewConnection_ = view.changed.connect([this] { emit changed(); });
    appearanceConnection_ = appearance.changed.connect([this] { emit changed(); });
    storeConnection_ = store.itemsChanged.connect([this] { emit changed(); });
}

QStringList SettingsBridge::shelfAppearanceNames() {
    return displayNames(shelfAppearanceCases);
}

int SettingsBridge::shelfAppearanceIndex() const {
    return caseIndex(shelfAppearanceCases, appearance_.shelfAppearance());
}

void SettingsBridge::setShelfAppearanceIndex(int index) {
    if (const auto value = caseAt(shelfAppearanceCases, index))
        appearance_.setShelfAppearance(*value);
}

QStringList SettingsBridge::terminalAppNames() {
    return displayNames(terminalAppCases);
}

int SettingsBridge::terminalAppIndex() const {
    return caseIndex(terminalAppCases, appearance_.preferredTerminalApp());
}

void SettingsBridge::setTerminalAppIndex(int index) {
    if (const auto value = caseAt(terminalAppCases, index))
        appearance_.setPreferredTerminalApp(*value);
}

QStringList SettingsBridge::codexLaunchModeNames() {
    return displayNames(codexLaunchModeCases);
}

int SettingsBridge::codexLaunchModeIndex() const {
    return caseIndex(codexLaunchModeCases, appearance_.codexLaunchMode());
}

void SettingsBridge::setCodexLaunchModeIndex(int index) {
    if (const auto value = caseAt(codexLaunchModeCases, index))
        appearance_.setCodexLaunchMode(*value);
}

bool SettingsBridge::hideFromScreenCapture() const {
    return appearance_.hideFromScreenCapture();
}

void SettingsBridge::setHideFromScreenCapture(bool value) {
    appearance_.setHideFromScreenCapture(value);
}

bool SettingsBridge::startsAtLogin() const {
    return view_.startsAtLogin();
}

void SettingsBridge::setStartsAtLogin(bool value) {
    view_.setStartsAtLogin(value);
}

QString SettingsBridge::terminalCaption() const {
    return caption(view_.terminalCaption());
}

QString SettingsBridge::codexCaption() const {
    return caption(view_.codexCaption());
}

QString SettingsBridge::screenCaptureCaption() const {
    return caption(view_.screenCaptureCaption());
}

bool SettingsBridge::isDropTargeted() const {
    return view_.isDropTargeted();
}

void SettingsBridge::setIsDropTargeted(bool value) {
    view_.setIsDropTargeted(value);
}

void SettingsBridge::chooseNewFolder() {
    view_.chooseNewFolder();
}

bool SettingsBridge::handleDrop(const QList<QUrl>& urls) {
    std::vector<std::string> paths;
    for (const QUrl& url : urls)
        if (url.isLocalFile())
            paths.push_back(QFile::encodeName(url.toLocalFile()).toStdString());
    return view_.handleDrop(paths);
}

} // namespace tidewell
