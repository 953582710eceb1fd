#pragma once

#include "core/platform/FolderChooser.h"

namespace tidewell {

// The desktop's file dialog, showing folders only.
class QtFolderChooser : public FolderChooser {
public:
    std::optional<std::string> chooseFolder(const std::string& prompt) override;
};

} // namespace tidewell
