#pragma once

#include "core/launch/CodexLaunchMode.h"
#include "core/launch/TerminalApp.h"
#include "core/observe/Signal.h"
#include "core/platform/KeyValueStore.h"
#include "core/settings/ShelfAppearance.h"

namespace tidewell {

// The user's four preferences, kept in the key-value store under their fixed keys.
// Loading never writes; every assignment writes its key, even an unchanged value, and
// then emits `changed`.
class AppearanceSettings {
public:
    explicit AppearanceSettings(KeyValueStore& defaults);

    ShelfAppearance shelfAppearance() const { return shelfAppearance_; }
    TerminalApp preferredTerminalApp() const { return preferredTerminalApp_; }
    CodexLaunchMode codexLaunchMode() const { return codexLaunchMode_; }
    bool hideFromScreenCapture() const { return hideFromScreenCapture_; }

    void setShelfAppearance(ShelfAppearance value);
    void setPreferredTerminalApp(TerminalApp value);
    void setCodexLaunchMode(CodexLaunchMode value);
    void setHideFromScreenCapture(bool value);

    Signal<> changed;

private:
    KeyValueStore& defaults_;
    ShelfAppearance shelfAppearance_;
    TerminalApp preferredTerminalApp_;
    CodexLaunchMode codexLaunchMode_;
    bool hideFromScreenCapture_;
};

} // namespace tidewell
