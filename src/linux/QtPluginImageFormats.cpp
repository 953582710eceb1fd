#include "linux/QtPluginImageFormats.h"

#include "core/platform/PathText.h"

#include <cstdlib>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace tidewell {
namespace {

// The plugin that reads each extension discovery accepts; PNG needs none. HEIC has no plugin
// for this toolkit's version in the distribution, so it is never drawn.
constexpr std::pair<std::string_view, std::string_view> plugins[] = {
    {"png", ""},
    {"jpg", "libqjpeg.so"},
    {"jpeg", "libqjpeg.so"},
    {"ico", "libqico.so"},
    {"svg", "libqsvg.so"},
    {"icns", "libqicns.so"},
    {"tiff", "libqtiff.so"},
    {"webp", "libqwebp.so"},
};

} // namespace

QtPluginImageFormats QtPluginImageFormats::installed() {
    std::vector<std::string> folders;
    const char* variable = std::getenv("QT_PLUGIN_PATH");
    for (const std::string_view folder : PathText::split(variable ? variable : "", ':'))
        if (!folder.empty())
            folders.emplace_back(folder);
    folders.emplace_back(TIDEWELL_QT_PLUGIN_DIR);
    return QtPluginImageFormats(std::move(folders));
}

bool QtPluginImageFormats::canDecode(std::string_view extension) const {
    for (const auto& [known, plugin] : plugins) {
        if (known != extension)
            continue;
        if (plugin.empty())
            return true;
        for (const std::string& folder : pluginFolders_)
            if (::access((folder + "/imageformats/" + std::string(plugin)).c_str(), R_OK) == 0)
                return true;
        return false;
    }
    return false;
}

} // namespace tidewell
