#include "e2e/EndToEndTest.h"
#include "e2e/PostedSignalListener.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <sys/file.h>
#include <unistd.h>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

constexpr const char* showShelf = "Tidewell.showShelf";

// What a running application holds: an exclusive lock on app.lock.
class HeldApplicationLock {
public:
    explicit HeldApplicationLock(const std::string& path)
        : descriptor_(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        if (descriptor_ < 0 || ::flock(descriptor_, LOCK_EX | LOCK_NB) != 0)
            throw std::runtime_error("cannot lock " + path);
    }
    ~HeldApplicationLock() { ::close(descriptor_); }
    HeldApplicationLock(const HeldApplicationLock&) = delete;
    HeldApplicationLock& operator=(const HeldApplicationLock&) = delete;

private:
    int descriptor_;
};

class ApplicationStartTest : public EndToEndTest {
protected:
    ApplicationStartTest() { std::filesystem::create_directories(dataFolder()); }

    ProcessResult tidewell(const std::vector<std::string>& arguments,
                           const std::string& program = tidewellPath()) const {
        std::vector<std::string> command = {program};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return ChildProcess::run(
            {.arguments = command, .workingDirectory = home, .environment = environment()}, 5s);
    }

    std::string appLock() const { return dataFolder() + "/app.lock"; }

    PostedSignalListener listener;
};

TEST_F(ApplicationStartTest, ASecondStartAsksTheRunningOneToShowItsShelfAndEndsQuietly) {
    const HeldApplicationLock running(appLock());
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{}, {"-psn_0_1"}}) {
        const ProcessResult result = tidewell(arguments);
        EXPECT_FALSE(result.timedOut);
        EXPECT_EQ(result.standardOutput, "");
        EXPECT_EQ(result.standardError, "");
        EXPECT_EQ(result.status, 0);
    }
    EXPECT_TRUE(listener.waitFor(showShelf, 2));
    EXPECT_EQ(listener.received(), std::vector<std::string>(2, showShelf));
    EXPECT_TRUE(std::filesystem::is_regular_file(appLock()));
    EXPECT_FALSE(readFile(itemsFile()));
}

// The user interface is loaded from beside the program or from the installed library
// folder; a copy of the program in a folder of its own finds none beside it.
TEST_F(ApplicationStartTest, WithoutTheUserInterfaceLibraryTheStartFailsWithOneLine) {
    if (std::filesystem::exists(TIDEWELL_GUI_LIBRARY_DIR "/libtidewell-gui.so"))
        GTEST_SKIP() << "a user interface is installed on this machine";
    const std::string program = root.makeFolder("alone") + "/tidewell";
    std::filesystem::copy_file(tidewellPath(), program);
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);

    const ProcessResult result = tidewell({}, program);
    EXPECT_EQ(result.standardOutput, "");
    EXPECT_TRUE(result.standardError.starts_with("tidewell: cannot load the user interface: "))
        << result.standardError;
    EXPECT_EQ(std::count(result.standardError.begin(), result.standardError.end(), '\n'), 1);
    EXPECT_TRUE(result.standardError.ends_with("\n"));
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(std::filesystem::is_regular_file(appLock()));
    EXPECT_TRUE(listener.received().empty());
}

TEST_F(ApplicationStartTest, ShowLeavesTheFlagAndStartsTheApplication) {
    const HeldApplicationLock running(appLock());

    const ProcessResult result = ChildProcess::run(tideLaunch({"show", "ignored"}, home), 5s);
    EXPECT_EQ(result.standardOutput, "");
    EXPECT_EQ(result.standardError, "");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(readFile(dataFolder() + "/.showOnLaunch"), "");
    // The started application finds the lock held and asks the running one to show its shelf.
    EXPECT_TRUE(listener.waitFor(showShelf));
}

} // namespace
} // namespace tidewell::testing
