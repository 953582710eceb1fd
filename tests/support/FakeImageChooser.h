#pragma once

#include "core/platform/ImageChooser.h"

namespace tidewell::testing {

// Answers with `choice` (none: the user cancels) and counts how often it was shown.
class FakeImageChooser : public ImageChooser {
public:
    std::optional<std::string> chooseImage() override {
        ++shownCount;
        return choice;
    }

    std::optional<std::string> choice;
    int shownCount = 0;
};

} // namespace tidewell::testing
