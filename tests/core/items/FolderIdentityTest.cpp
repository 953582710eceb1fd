#include "core/items/FolderIdentity.h"

#include "linux/PosixFileSystem.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;

// Links are resolved in every component as the kernel does; those that lead nowhere stay.
TEST(FolderIdentityTest, PathsAndIdentifiersFollowLinksThatLeadSomewhere) {
    TemporaryDirectory root;
    PosixFileSystem files;
    FolderIdentity folders(files);
    const std::string at = root.path() + "/";
    const std::string real = root.makeFolder("a/real/project");
    root.makeFolder("b");
    for (const auto& [name, target] : std::vector<std::pair<std::string, std::string>>{
             {"a/up", "real"},
             {"b/chain", "../a/up"},
             {"absolute", real},
             {"a/real/sideways", "../real/./project/.."},
             {"loop-a", "loop-b"},
             {"loop-b", "loop-a"},
             {"self", "self"},
             {"dangling", "missing/target"}})
        fs::create_symlink(target, at + name);
    fs::current_path(root.makeFolder("work"));
    for (const auto& [path, normalized] : std::vector<std::pair<std::string, std::string>>{
             {at + "b/chain/project", real},
             {at + "absolute/", real},
             {at + "a/real/sideways/project", real},
             {at + "b/chain/project/not/yet", real + "/not/yet"},
             {at + "a/./x/../up/project", real},
             {at + "loop-a/below", at + "loop-a/below"},
             {at + "self/below", at + "self/below"},
             {at + "dangling/below", at + "dangling/below"},
             {"sub/../.", at + "work"},
             {"", at + "work"},
         })
        EXPECT_EQ(folders.normalizedPath(path), normalized) << path;
    fs::current_path("/");

    const std::string viaLink = folders.identifier(at + "b/chain/project");
    EXPECT_TRUE(viaLink.starts_with("ino:"));
    EXPECT_EQ(viaLink, folders.identifier(real));
    EXPECT_NE(viaLink, folders.identifier(at + "a"));
    for (const std::string name : {"loop-a", "self", "dangling"})
        EXPECT_EQ(folders.identifier(at + name), "path:" + at + name);
}

} // namespace
} // namespace tidewell::testing
