#pragma once

#include "core/platform/FolderChooser.h"

#include <vector>

namespace tidewell::testing {

// Answers with `choice` (none: the user cancels) and records the prompts it was shown with.
class FakeFolderChooser : public FolderChooser {
public:
    std::optional<std::string> chooseFolder(const std::string& prompt) override {
        prompts.push_back(prompt);
        return choice;
    }

    std::optional<std::string> choice;
    std::vector<std::string> prompts;
};

} // namespace tidewell::testing
