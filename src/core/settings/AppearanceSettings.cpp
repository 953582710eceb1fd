#include "core/settings/AppearanceSettings.h"

#include <string>

namespace tidewell {
namespace {

constexpr const char* shelfAppearanceKey = "shelfAppearance";
constexpr const char* preferredTerminalAppKey = "preferredTerminalApp";
constexpr const char* codexLaunchModeKey = "codexLaunchMode";
constexpr const char* hideFromScreenCaptureKey = "hideFromScreenCapture";

// The stored case, or the fallback when the key is absent or holds no exact raw value.
template <typename Enum, std::size_t count>
Enum load(const KeyValueStore& defaults, const char* key,
          const std::array<EnumCase<Enum>, count>& cases, Enum fallback) {
    const auto stored = defaults.string(key);
    return stored ? caseFromRawValue(cases, *stored).value_or(fallback) : fallback;
}

template <typename Enum, std::size_t count>
void store(KeyValueStore& defaults, const char* key, const std::array<EnumCase<Enum>, count>& cases,
           Enum value) {
    defaults.setString(key, std::string(caseOf(cases, value).rawValue));
}

} // namespace

AppearanceSettings::AppearanceSettings(KeyValueStore& defaults)
    : defaults_(defaults), shelfAppearance_(load(defaults, shelfAppearanceKey, shelfAppearanceCases,
                                                 ShelfAppearance::notchBlack)),
      preferredTerminalApp_(
          load(defaults, preferredTerminalAppKey, terminalAppCases, TerminalApp::automatic)),
      codexLaunchMode_(
          load(defaults, codexLaunchModeKey, codexLaunchModeCases, CodexLaunchMode::cli)),
      hideFromScreenCapture_(defaults.boolean(hideFromScreenCaptureKey).value_or(false)) {}

void AppearanceSettings::setShelfAppearance(ShelfAppearance value) {
    shelfAppearance_ = value;
    store(defaults_, shelfAppearanceKey, shelfAppearanceCases, value);
    changed.emit();
}

void AppearanceSettings::setPreferredTerminalApp(TerminalApp value) {
    preferredTerminalApp_ = value;
    store(defaults_, preferredTerminalAppKey, terminalAppCases, value);
    changed.emit();
}

void AppearanceSettings::setCodexLaunchMode(CodexLaunchMode value) {
    codexLaunchMode_ = value;
    store(defaults_, codexLaunchModeKey, codexLaunchModeCases, value);
    changed.emit();
}

void AppearanceSettings::setHideFromScreenCapture(bool value) {
    hideFromScreenCapture_ = value;
    defaults_.setBoolean(hideFromScreenCaptureKey, value);
    changed.emit();
}

} // namespace tidewell
