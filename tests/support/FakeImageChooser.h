#pragma once

#include "core/platform/ImageChooser.h"

namespace tidewell::testing {

// Answers with `choice` (none: the user cancels).
class FakeImageChooser : public ImageChooser {
public:
    std::optional<std::string> chooseImage() override { return choice; }

    std::optional<std::string> choice;
};

} // namespace tidewell::testing
