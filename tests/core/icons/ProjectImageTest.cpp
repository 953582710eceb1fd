#include "core/icons/ProjectImage.h"

#include "linux/PosixFileSystem.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tidewell {

TEST(ProjectImageTest, ShowsOnlyImagesThatResolveInsideTheCacheOrTheDataFolder) {
    testing::TemporaryDirectory temporary;
    PosixFileSystem files;
    const std::string icons = temporary.makeFolder("data/Tidewell/Icons");
    const std::string shipped = temporary.makeFolder("prefix/share/tidewell");
    const std::string pictures = temporary.makeFolder("home/Pictures");
    std::filesystem::create_directory_symlink(pictures, icons + "/escape");
    std::filesystem::create_directory_symlink(icons, temporary.path() + "/home/icons");
    const std::optional<std::string> none;
    const std::pair<std::optional<std::string>, std::optional<std::string>> cases[] = {
        {icons + "/A.png", icons + "/A.png"},
        {icons + "/sub/../A.png", icons + "/sub/../A.png"},
        {shipped + "/logo.svg", shipped + "/logo.svg"},
        {icons + "/", none},
        {shipped + "-other/logo.png", none},
        {shipped + "/../../../etc/passwd.png", none},
        {icons + "/escape/logo.png", none},
        {icons + "/escape/../A.png", none}, // ".." leaves the link's target, not "escape"
        {temporary.path() + "/home/icons/A.png", none},
        {pictures + "/logo.png", none},
        {"", none},
        {none, none},
    };
    for (const std::string slash : {"", "/"}) {
        const IconCache cache{files, icons + slash};
        for (const auto& [iconPath, shown] : cases) {
            NotchItem item;
            item.iconPath = iconPath;
            EXPECT_EQ(projectImagePath(item, cache, shipped + slash), shown)
                << iconPath.value_or("-") << " with folders ending in '" << slash << "'";
        }
        NotchItem anywhere;
        anywhere.iconPath = "/logo.png";
        EXPECT_EQ(projectImagePath(anywhere, cache, ""), none); // not installed: nothing shipped
    }
}

} // namespace tidewell
