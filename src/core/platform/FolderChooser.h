#pragma once

#include <optional>
#include <string>

namespace tidewell {

// A modal dialog in which the user picks one folder.
class FolderChooser {
public:
    virtual ~FolderChooser() = default;
    // The chosen folder's path; none when the user cancels. `prompt` labels the button
    // that confirms.
    virtual std::optional<std::string> chooseFolder(const std::string& prompt) = 0;
};

} // namespace tidewell
