#include "core/icons/ProjectImage.h"

#include "linux/PosixFileSystem.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

TEST(ProjectImageTest, ShowsOnlyCachedOrShippedImages) {
    testing::TemporaryDirectory temporary;
    PosixFileSystem files;
    const IconCache cache{files, temporary.path() + "/data/Tidewell/Icons"};
    const std::string application = temporary.path() + "/app";
    const auto imageFor = [&](std::optional<std::string> iconPath) {
        NotchItem item;
        item.iconPath = std::move(iconPath);
        return projectImagePath(item, cache, application);
    };

    const std::string cached = temporary.path() + "/data/Tidewell/Icons/A.png";
    EXPECT_EQ(imageFor(cached), cached);
    EXPECT_EQ(imageFor(application + "/share/logo.svg"), application + "/share/logo.svg");

    EXPECT_EQ(imageFor(temporary.path() + "/home/Pictures/logo.png"), std::nullopt);
    EXPECT_EQ(imageFor(application + "-other/logo.png"), std::nullopt);
    EXPECT_EQ(imageFor(temporary.path() + "/data/Tidewell/Icons"), std::nullopt);
    EXPECT_EQ(imageFor(""), std::nullopt);
    EXPECT_EQ(imageFor(std::nullopt), std::nullopt);

    NotchItem shipped;
    shipped.iconPath = "/logo.png";
    EXPECT_EQ(projectImagePath(shipped, cache, ""), std::nullopt); // no folder, nothing shipped
}

} // namespace
} // namespace tidewell
