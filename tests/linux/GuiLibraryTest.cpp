#include "linux/GuiLibrary.h"

#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace tidewell {

// The reason given is the first folder's: beside the executable is where a build puts it.
TEST(GuiLibrary, ALibraryThatCannotBeLoadedFailsWithTheFirstFoldersReason) {
    const testing::TemporaryDirectory root;
    const std::string library = root.write("bin/" + std::string(GuiLibrary::fileName), "text");
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(GuiLibrary::run(0, nullptr, root.path() + "/bin", root.path() + "/lib"), 1);
    const std::string errors = ::testing::internal::GetCapturedStderr();
    EXPECT_TRUE(errors.starts_with("tidewell: cannot load the user interface: " + library + ": "))
        << errors;
}

} // namespace tidewell
