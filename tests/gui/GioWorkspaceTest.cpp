#include "gui/platform/GioWorkspace.h"

#include "gui/TestDesktop.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <stdexcept>
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace tidewell {
namespace {

using testing::TestDesktop;

std::string fileUriInTestFolder(const std::string& escapedRelativePath) {
    return "file://" + TestDesktop::files().path() + "/" + escapedRelativePath;
}

void expectDetached(const testing::HandlerLaunch& launch) {
    ASSERT_FALSE(launch.processId.empty());
    EXPECT_EQ(launch.sessionId, launch.processId) << "the handler leads a session of its own";
    EXPECT_NE(launch.sessionId, std::to_string(::getsid(0)));
}

// A file manager on the session bus, served by this thread while the test waits, that
// records the items asked for and answers only as it goes away (like one that takes long to
// start).
class FakeFileManager {
public:
    FakeFileManager() {
        if (sd_bus_open_user(&bus_) < 0 ||
            sd_bus_add_object(bus_, nullptr, "/org/freedesktop/FileManager1", &handle, this) < 0 ||
            sd_bus_request_name(bus_, "org.freedesktop.FileManager1", 0) < 0)
            throw std::runtime_error("cannot serve the file manager");
    }
    ~FakeFileManager() {
        for (sd_bus_message* call : unanswered_) {
            sd_bus_reply_method_return(call, "");
            sd_bus_message_unref(call);
        }
        sd_bus_flush_close_unref(bus_);
    }
    // Serves the bus until the file manager was asked once.
    std::vector<std::string> waitForCall() {
        testing::processEventsUntil([&] {
            while (sd_bus_process(bus_, nullptr) > 0) {
            }
            return !uris_.empty();
        });
        return uris_;
    }

private:
    static int handle(sd_bus_message* message, void* self, sd_bus_error*) {
        auto& manager = *static_cast<FakeFileManager*>(self);
        char** uris = nullptr;
        if (!sd_bus_message_is_method_call(message, nullptr, "ShowItems") ||
            sd_bus_message_read_strv(message, &uris) < 0)
            return 0;
        for (char** uri = uris; uri && *uri; ++uri) {
            manager.uris_.push_back(*uri);
            std::free(*uri);
        }
        std::free(uris);
        manager.unanswered_.push_back(sd_bus_message_ref(message));
        return 1;
    }

    sd_bus* bus_ = nullptr;
    std::vector<std::string> uris_;
    std::vector<sd_bus_message*> unanswered_;
};

// Opened in the default handler or the named application: detached, without the start-up
// tokens of this process, with the folder's URI.
TEST(GioWorkspace, OpeningStartsTheHandlerDetachedWithTheFolderURI) {
    const std::string folder = TestDesktop::files().makeFolder("projects/Tide \"well\" é");
    testing::ScopedEnvironment environment;
    for (const char* token : {"DESKTOP_AUTOSTART_ID", "DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"})
        environment.set(token, "token");
    environment.set("TIDEWELL_TEST_MARK", "kept");
    GioWorkspace workspace;
    EXPECT_TRUE(workspace.isApplicationInstalled(TestDesktop::codexId));
    EXPECT_FALSE(workspace.isApplicationInstalled("com.openai.codex.desktop"));
    EXPECT_FALSE(workspace.openWithApplication("tidewell-no-such-application", folder));

    workspace.openFolder(folder);
    EXPECT_TRUE(workspace.openWithApplication(TestDesktop::codexId, folder));
    for (const char* handler : {TestDesktop::folderHandlerId, TestDesktop::codexId}) {
        const auto launch = TestDesktop::waitForLaunch(handler);
        ASSERT_TRUE(launch) << handler;
        EXPECT_EQ(launch->arguments,
                  std::vector{fileUriInTestFolder("projects/Tide%20%22well%22%20%C3%A9")});
        expectDetached(*launch);
        EXPECT_TRUE(launch->hasVariable("TIDEWELL_TEST_MARK"));
        for (const char* token :
             {"DESKTOP_AUTOSTART_ID", "DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"})
            EXPECT_FALSE(launch->hasVariable(token)) << token;
    }
}

// The call returns before the file manager answers. The enclosing folder opens only when no
// file manager answers: after the answered reveal, the next folder opened is that of a reveal
// without a file manager, so a second window for the first would show up first.
TEST(GioWorkspace, RevealShowsTheFolderInOneWindowWithoutWaitingForTheFileManager) {
    const std::string folder = TestDesktop::files().makeFolder("reveal/shown folder");
    {
        FakeFileManager fileManager;
        GioWorkspace().reveal(folder + "/");
        EXPECT_EQ(fileManager.waitForCall(),
                  std::vector{fileUriInTestFolder("reveal/shown%20folder/")});
    }
    GioWorkspace().reveal(TestDesktop::files().makeFolder("alone/revealed"));
    const auto launch = TestDesktop::waitForLaunch(TestDesktop::folderHandlerId);
    ASSERT_TRUE(launch);
    EXPECT_EQ(launch->arguments, std::vector{fileUriInTestFolder("alone")});
}

} // namespace
} // namespace tidewell
