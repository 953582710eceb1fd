#include "core/items/FolderIdentity.h"

#include "linux/PosixFileSystem.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;

class FolderIdentityTest : public ::testing::Test {
protected:
    std::string link(const std::string& name, const std::string& target) {
        const std::string path = root.path() + "/" + name;
        fs::create_directories(fs::path(path).parent_path());
        fs::create_symlink(target, path);
        return path;
    }
    std::string normalized(const std::string& path) {
        return FolderIdentity(files).normalizedPath(path);
    }

    TemporaryDirectory root;
    PosixFileSystem files;
};

TEST_F(FolderIdentityTest, LinksAreResolvedInEveryComponentAsTheKernelDoes) {
    const std::string real = root.makeFolder("a/real/project");
    link("a/up", "real");
    link("b/chain", "../a/up");
    link("absolute", real);
    link("a/real/sideways", "../real/./project/..");
    EXPECT_EQ(normalized(root.path() + "/b/chain/project"), real);
    EXPECT_EQ(normalized(root.path() + "/absolute/"), real);
    EXPECT_EQ(normalized(root.path() + "/a/real/sideways/project"), real);
    EXPECT_EQ(normalized(root.path() + "/b/chain/project/not/yet"), real + "/not/yet");
    EXPECT_EQ(normalized(root.path() + "/a/./x/../up/project"), real);

    FolderIdentity folders(files);
    const std::string& viaLink = folders.identifier(root.path() + "/b/chain/project");
    EXPECT_TRUE(viaLink.starts_with("ino:"));
    EXPECT_EQ(viaLink, folders.identifier(real));
    EXPECT_NE(viaLink, folders.identifier(root.path() + "/a"));
}

TEST_F(FolderIdentityTest, LinksThatLeadNowhereStayAsTheyAre) {
    link("loop-a", "loop-b");
    link("loop-b", "loop-a");
    link("self", "self");
    link("dangling", "missing/target");
    for (const std::string name : {"loop-a", "self", "dangling"}) {
        const std::string path = root.path() + "/" + name;
        FolderIdentity folders(files);
        EXPECT_EQ(folders.normalizedPath(path + "/below"), path + "/below");
        EXPECT_EQ(folders.identifier(path), "path:" + path);
    }
}

TEST_F(FolderIdentityTest, RelativePathsStartAtTheWorkingDirectory) {
    const fs::path previous = fs::current_path();
    fs::current_path(root.makeFolder("work"));
    EXPECT_EQ(normalized("sub/../."), root.path() + "/work");
    EXPECT_EQ(normalized(""), root.path() + "/work");
    fs::current_path(previous);
}

} // namespace
} // namespace tidewell::testing
