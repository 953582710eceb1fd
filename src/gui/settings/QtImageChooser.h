#pragma once

#include "core/platform/ImageChooser.h"

#include <QStringList>

namespace tidewell {

// The desktop's file dialog, showing image files only.
class QtImageChooser : public ImageChooser {
public:
    std::optional<std::string> chooseImage() override;

    // The file-name patterns of every image type the desktop knows ("*.png", "*.svg" ...).
    static QStringList imagePatterns();
};

} // namespace tidewell
