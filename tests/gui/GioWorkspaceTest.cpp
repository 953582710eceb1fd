#include "gui/platform/GioWorkspace.h"

#include "gui/EventLoopWait.h"
#include "gui/FakeFileManager.h"
#include "gui/TestDesktop.h"
#include "support/ScopedEnvironment.h"

#include <gtest/gtest.h>
#include <optional>
#include <unistd.h>

namespace tidewell {
namespace {

using testing::TestDesktop;

const TestDesktop& desktop() {
    return TestDesktop::current();
}

std::string fileUriInTestFolder(const std::string& escapedRelativePath) {
    return "file://" + desktop().files().path() + "/" + escapedRelativePath;
}

void expectDetached(const testing::HandlerLaunch& launch) {
    ASSERT_FALSE(launch.processId.empty());
    EXPECT_EQ(launch.sessionId, launch.processId) << "the handler leads a session of its own";
    EXPECT_NE(launch.sessionId, std::to_string(::getsid(0)));
}

TEST(GioWorkspace, OpenFolderStartsTheDefaultHandlerDetachedWithTheFolderURI) {
    const std::string folder = desktop().files().makeFolder("projects/Tide \"well\" é");
    testing::ScopedEnvironment environment;
    environment.set("DESKTOP_AUTOSTART_ID", "autostart-token");
    environment.set("DESKTOP_STARTUP_ID", "startup-token");
    environment.set("XDG_ACTIVATION_TOKEN", "activation-token");
    environment.set("TIDEWELL_TEST_MARK", "kept");

    GioWorkspace().openFolder(folder);
    const auto launch = desktop().waitForLaunch(TestDesktop::folderHandlerId);

    ASSERT_TRUE(launch);
    EXPECT_EQ(launch->arguments,
              std::vector{fileUriInTestFolder("projects/Tide%20%22well%22%20%C3%A9")});
    expectDetached(*launch);
    EXPECT_TRUE(launch->hasVariable("TIDEWELL_TEST_MARK"));
    EXPECT_FALSE(launch->hasVariable("DESKTOP_AUTOSTART_ID"));
    EXPECT_FALSE(launch->hasVariable("DESKTOP_STARTUP_ID"));
    EXPECT_FALSE(launch->hasVariable("XDG_ACTIVATION_TOKEN"));
}

TEST(GioWorkspace, ApplicationsAreFoundByTheirDesktopEntryId) {
    const GioWorkspace workspace;
    EXPECT_TRUE(workspace.isApplicationInstalled(TestDesktop::codexId));
    EXPECT_TRUE(workspace.isApplicationInstalled(TestDesktop::folderHandlerId));
    EXPECT_FALSE(workspace.isApplicationInstalled("com.openai.codex.desktop"));
    EXPECT_FALSE(workspace.isApplicationInstalled("tidewell-no-such-application"));
}

TEST(GioWorkspace, OpenWithApplicationStartsThatApplicationDetached) {
    const std::string folder = desktop().files().makeFolder("projects/for codex");
    GioWorkspace workspace;

    EXPECT_FALSE(workspace.openWithApplication("tidewell-no-such-application", folder));
    EXPECT_TRUE(workspace.openWithApplication(TestDesktop::codexId, folder));
    const auto launch = desktop().waitForLaunch(TestDesktop::codexId);

    ASSERT_TRUE(launch);
    EXPECT_EQ(launch->arguments, std::vector{fileUriInTestFolder("projects/for%20codex")});
    expectDetached(*launch);
}

// The call returns before the file manager answers. The enclosing folder opens only when
// the file manager fails; after any other answer the next folder opened is that of a
// reveal without a file manager, so a second window for the first would show up first.
TEST(GioWorkspace, RevealShowsTheFolderInOneWindowWithoutWaitingForTheFileManager) {
    using Answer = testing::FakeFileManager::Answer;
    const struct {
        std::string name;
        std::optional<Answer> fileManager;
    } cases[] = {{"answering", Answer::atOnce},
                 {"slow", Answer::late},
                 {"failing", Answer::withError},
                 {"absent", std::nullopt}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const std::string enclosing = "reveal/" + row.name;
        const std::string folder = desktop().files().makeFolder(enclosing + "/shown folder");
        std::optional<testing::FakeFileManager> fileManager;
        if (row.fileManager)
            fileManager.emplace(*row.fileManager);

        GioWorkspace().reveal(folder + "/");
        if (fileManager) {
            ASSERT_TRUE(
                testing::processEventsUntil([&] { return fileManager->calls().size() == 1; }));
            EXPECT_EQ(fileManager->calls()[0].uris,
                      std::vector{fileUriInTestFolder(enclosing + "/shown%20folder/")});
            EXPECT_EQ(fileManager->calls()[0].startupId, "");
            fileManager.reset(); // the slow one answers now
        }
        const bool fails = row.fileManager.value_or(Answer::withError) == Answer::withError;
        const std::string opened = fails ? enclosing : enclosing + "/then";
        if (!fails)
            GioWorkspace().reveal(desktop().files().makeFolder(opened + "/revealed"));
        const auto launch = desktop().waitForLaunch(TestDesktop::folderHandlerId);
        ASSERT_TRUE(launch);
        EXPECT_EQ(launch->arguments, std::vector{fileUriInTestFolder(opened)});
    }
}

} // namespace
} // namespace tidewell
