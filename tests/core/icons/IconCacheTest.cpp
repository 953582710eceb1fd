#include "core/icons/IconCache.h"

#include "linux/PosixFileSystem.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

const Uuid item = *Uuid::parse("3f2504e0-4f89-11d3-9a0c-0305e82c3301");
const std::string itemText = "3F2504E0-4F89-11D3-9A0C-0305E82C3301";

class IconCacheTest : public ::testing::Test {
protected:
    std::string read(const std::string& path) const { return files.readFile(path).value_or(""); }

    testing::TemporaryDirectory temporary;
    PosixFileSystem files;
    std::string cacheDirectory = temporary.path() + "/data/Tidewell/Icons";
    IconCache cache{files, cacheDirectory};
};

TEST_F(IconCacheTest, CopiesIntoTheCacheUnderTheItemsIdAndLowerCasedExtension) {
    const std::string png = temporary.write("project/Icon.PNG", "first image");
    EXPECT_EQ(cache.cache(png, item), cacheDirectory + "/" + itemText + ".png");
    EXPECT_EQ(read(cacheDirectory + "/" + itemText + ".png"), "first image");
    EXPECT_EQ(read(png), "first image"); // the source stays

    const std::string bare = temporary.write("project/logo", "no extension");
    EXPECT_EQ(cache.cache(bare, item), cacheDirectory + "/" + itemText + ".png");
    EXPECT_EQ(read(cacheDirectory + "/" + itemText + ".png"), "no extension");

    const std::string icns = temporary.write("project/App.icns", "icns");
    EXPECT_EQ(cache.cache(icns, item), cacheDirectory + "/" + itemText + ".icns");
    EXPECT_EQ(cache.cache(temporary.path() + "/project/./sub/../App.icns", item),
              cacheDirectory + "/" + itemText + ".icns");
    EXPECT_EQ(files.list(cacheDirectory).size(), 2u);
}

TEST_F(IconCacheTest, LeavesPathsInsideTheCacheAsTheyAre) {
    const std::string cached = cacheDirectory + "/" + itemText + ".svg";
    EXPECT_EQ(cache.cache(cached, item), cached); // even before the cache exists
    temporary.write("data/Tidewell/Icons/other.png", "cached");
    const std::string other = cacheDirectory + "/other.png";
    EXPECT_EQ(cache.cache(other, item), other);
    EXPECT_EQ(files.list(cacheDirectory).size(), 1u);
}

TEST_F(IconCacheTest, ManagedMeansBelowTheCacheDirectoryAfterStandardizing) {
    EXPECT_TRUE(cache.isManaged(cacheDirectory + "/a.png"));
    EXPECT_TRUE(IconCache(files, cacheDirectory + "/").isManaged(cacheDirectory + "/a.png"));
    EXPECT_FALSE(cache.isManaged(cacheDirectory));
    EXPECT_FALSE(cache.isManaged(cacheDirectory + "2/a.png"));
    EXPECT_FALSE(cache.isManaged(cacheDirectory + "/../Icons2/a.png"));
}

TEST_F(IconCacheTest, FailuresAreSilentAndReturnNothing) {
    EXPECT_EQ(cache.cache(std::nullopt, item), std::nullopt);
    EXPECT_EQ(cache.cache(temporary.path() + "/missing.png", item), std::nullopt);
    EXPECT_FALSE(files.exists(cacheDirectory));

    // A source that cannot be copied: a folder.
    EXPECT_EQ(cache.cache(temporary.makeFolder("folder.png"), item), std::nullopt);

    // A cache directory that cannot be made, because a file is in its place.
    const std::string source = temporary.write("logo.png", "image");
    temporary.write("blocked/Icons", "a file");
    IconCache blocked(files, temporary.path() + "/blocked/Icons/inner");
    EXPECT_EQ(blocked.cache(source, item), std::nullopt);
}

} // namespace
} // namespace tidewell
