#pragma once

#include <optional>
#include <string>

namespace tidewell {

// A modal dialog in which the user picks one image file.
class ImageChooser {
public:
    virtual ~ImageChooser() = default;
    // The chosen file's path; none when the user cancels.
    virtual std::optional<std::string> chooseImage() = 0;
};

} // namespace tidewell
