#include "core/icons/IconCache.h"

#include "linux/PosixFileSystem.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

// Copies go under the item's id with the lower-cased extension; paths already inside the
// cache stay; failures are silent and give nothing.
TEST(IconCacheTest, CopiesIntoTheCacheUnderTheItemsIdAndLowerCasedExtension) {
    testing::TemporaryDirectory temporary;
    PosixFileSystem files;
    const Uuid item = *Uuid::parse("3f2504e0-4f89-11d3-9a0c-0305e82c3301");
    const std::string cached = temporary.path() + "/data/Icons/" + item.text();
    IconCache cache{files, temporary.path() + "/data/Icons"};
    EXPECT_EQ(cache.cache(cached + ".svg", item), cached + ".svg"); // before the cache exists
    EXPECT_EQ(cache.cache(temporary.path() + "/missing.png", item), std::nullopt);
    EXPECT_FALSE(files.exists(temporary.path() + "/data"));
    EXPECT_EQ(cache.cache(std::nullopt, item), std::nullopt);
    EXPECT_EQ(cache.cache(temporary.makeFolder("folder.png"), item), std::nullopt);

    const std::string png = temporary.write("project/Icon.PNG", "first image");
    EXPECT_EQ(cache.cache(png, item), cached + ".png");
    EXPECT_EQ(files.readFile(cached + ".png"), "first image");
    EXPECT_EQ(files.readFile(png), "first image");
    EXPECT_EQ(cache.cache(temporary.write("project/logo", "bare"), item), cached + ".png");
    EXPECT_EQ(files.readFile(cached + ".png"), "bare");
    temporary.write("project/App.icns", "icns");
    EXPECT_EQ(cache.cache(temporary.path() + "/project/./sub/../App.icns", item), cached + ".icns");
    EXPECT_EQ(cache.cache(cached + ".icns", item), cached + ".icns");
    EXPECT_EQ(files.list(temporary.path() + "/data/Icons").size(), 2u);

    temporary.write("blocked/Icons", "a file where the cache should go");
    EXPECT_EQ(IconCache(files, temporary.path() + "/blocked/Icons/in").cache(png, item),
              std::nullopt);
}

TEST(IconCacheTest, ManagedMeansBelowTheCacheDirectoryAfterStandardizing) {
    PosixFileSystem files;
    const IconCache cache{files, "/data/Icons"};
    EXPECT_TRUE(cache.isManaged("/data/Icons/a.png"));
    EXPECT_TRUE(IconCache(files, "/data/Icons/").isManaged("/data/Icons/a.png"));
    EXPECT_FALSE(cache.isManaged("/data/Icons"));
    EXPECT_FALSE(cache.isManaged("/data/Icons2/a.png"));
    EXPECT_FALSE(cache.isManaged("/data/Icons/../Icons2/a.png"));
}

} // namespace
} // namespace tidewell
