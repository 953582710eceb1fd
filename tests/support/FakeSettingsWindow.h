#pragma once

#include "core/platform/SettingsWindow.h"

namespace tidewell::testing {

class FakeSettingsWindow : public SettingsWindow {
public:
    void show() override { ++showCount; }

    int showCount = 0;
};

} // namespace tidewell::testing
