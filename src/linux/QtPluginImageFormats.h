#pragma once

#include "core/icons/ImageFormats.h"

#include <string>
#include <vector>

namespace tidewell {

// What the user interface's toolkit can draw, told without loading it: PNG is built in,
// other formats need their image plugin, looked for where the toolkit loads plugins from.
// Each answer costs a file look-up or two, and only discovery asks.
class QtPluginImageFormats : public ImageFormats {
public:
    // The folders of QT_PLUGIN_PATH, then the toolkit's own plugin folder.
    static QtPluginImageFormats installed();

    explicit QtPluginImageFormats(std::vector<std::string> pluginFolders)
        : pluginFolders_(std::move(pluginFolders)) {}

    bool canDecode(std::string_view extension) const override;

private:
    std::vector<std::string> pluginFolders_;
};

} // namespace tidewell
