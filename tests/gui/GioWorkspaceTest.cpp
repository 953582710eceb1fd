#include "gui/platform/GioWorkspace.h"

#include "gui/TestDesktop.h"

#include <functional>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::TestDesktop;

// Opened in the default handler or the named application: detached, without the start-up
// tokens of this process, with the folder's escaped URI. A reveal with no file manager on the
// bus opens the enclosing folder.
TEST(GioWorkspace, OpeningStartsTheHandlerDetachedWithTheFolderURIAndRevealOpensTheParent) {
    const std::string folder = TestDesktop::files().makeFolder("projects/Tide \"well\" é");
    const std::string tokens[] = {"DESKTOP_AUTOSTART_ID", "DESKTOP_STARTUP_ID",
                                  "XDG_ACTIVATION_TOKEN"};
    testing::ScopedEnvironment environment;
    for (const std::string& token : tokens)
        environment.set(token, "token");
    GioWorkspace workspace;
    EXPECT_FALSE(workspace.isApplicationInstalled("com.openai.codex.desktop"));
    EXPECT_FALSE(workspace.openWithApplication("tidewell-no-such-application", folder));
    // One at a time: a handler's report is a single file.
    const std::string uri = "file://" + TestDesktop::files().path() + "/projects";
    const std::tuple<std::function<void()>, const char*, std::string> cases[] = {
        {[&] { workspace.openFolder(folder); }, testing::TestHandlers::folderHandlerId,
         uri + "/Tide%20%22well%22%20%C3%A9"},
        {[&] { EXPECT_TRUE(workspace.openWithApplication(TestDesktop::codexId, folder)); },
         TestDesktop::codexId, uri + "/Tide%20%22well%22%20%C3%A9"},
        {[&] { workspace.reveal(folder + "/"); }, testing::TestHandlers::folderHandlerId, uri}};
    for (const auto& [open, handler, argument] : cases) {
        open();
        const auto launch = TestDesktop::waitForLaunch(handler);
        ASSERT_TRUE(launch) << argument;
        EXPECT_EQ(launch->arguments, std::vector{argument});
        ASSERT_FALSE(launch->processId.empty());
        EXPECT_EQ(launch->sessionId, launch->processId) << "the handler leads a session of its own";
        for (const std::string& token : tokens)
            EXPECT_FALSE(launch->hasVariable(token)) << token;
    }
}

} // namespace
} // namespace tidewell
