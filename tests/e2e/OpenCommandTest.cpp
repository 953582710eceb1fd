#include "e2e/EndToEndTest.h"
#include "e2e/ItemsFileText.h"

#include <filesystem>

namespace tidewell::testing {
namespace {

// The desktop's opener is replaced by a script that notes its arguments and fails with 3.
class OpenCommandTest : public EndToEndTest {
protected:
    OpenCommandTest() {
        const std::string script = root.write("fake-bin/xdg-open", "#!/bin/sh\n"
                                                                   "printf '%s\\n' \"$@\" > '" +
                                                                       openedList +
                                                                       "'\n"
                                                                       "exit 3\n");
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
    }

    ProcessResult tideWithFakeOpener(const std::vector<std::string>& arguments,
                                     const std::string& workingDirectory) const {
        ChildProcess::Launch launch = tideLaunch(arguments, workingDirectory);
        launch.environment["PATH"] = root.path() + "/fake-bin:" + launch.environment["PATH"];
        return ChildProcess::run(launch);
    }

    const std::string openedList = root.path() + "/opened";
};

TEST_F(OpenCommandTest, OpenRecordsTheFolderAndReturnsTheOpenersStatus) {
    const std::string web = project("web");

    const ProcessResult opened = tideWithFakeOpener({"open", "."}, web);
    EXPECT_EQ(opened.standardOutput, "Added to recent: web\n");
    EXPECT_EQ(opened.standardError, "");
    EXPECT_EQ(opened.status, 3);
    EXPECT_EQ(readFile(openedList), web + "\n");
    EXPECT_EQ(stringValues(itemsFileBytes(), "path"), std::vector<std::string>{jsonEscaped(web)});
}

TEST_F(OpenCommandTest, AFolderThatDoesNotExistIsNeitherRecordedNorOpened) {
    const std::string web = project("web");

    const ProcessResult opened = tideWithFakeOpener({"open", "missing"}, web);
    EXPECT_EQ(opened.standardOutput, "");
    EXPECT_EQ(opened.standardError, "Path does not exist: " + web + "/missing\n");
    EXPECT_EQ(opened.status, 2);
    EXPECT_FALSE(readFile(openedList));
    EXPECT_FALSE(readFile(itemsFile()));
}

} // namespace
} // namespace tidewell::testing
