#include "e2e/RunningApplicationTest.h"
#include "support/ScopedEnvironment.h"

#include <cstdlib>
#include <filesystem>
#include <glib.h>
#include <memory>
#include <unistd.h>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

// The desktop entry's actions, read as a launcher reads them: each command through GLib's
// unescaping and quoting rules.
class DesktopEntryActionsTest : public RunningApplicationTest {
protected:
    // The programs are found as if installed.
    DesktopEntryActionsTest() { installed.set("PATH", buildFolder() + ":" + std::getenv("PATH")); }

    static std::vector<std::string> command(const std::string& action) {
        const std::unique_ptr<GKeyFile, void (*)(GKeyFile*)> entry(g_key_file_new(),
                                                                   g_key_file_free);
        EXPECT_TRUE(g_key_file_load_from_file(entry.get(), TIDEWELL_DESKTOP_ENTRY, G_KEY_FILE_NONE,
                                              nullptr));
        const std::unique_ptr<char, void (*)(void*)> line(
            g_key_file_get_string(entry.get(), ("Desktop Action " + action).c_str(), "Exec",
                                  nullptr),
            g_free);
        char** words = nullptr;
        if (!line || !g_shell_parse_argv(line.get(), nullptr, &words, nullptr))
            return {};
        std::vector<std::string> arguments(words, words + g_strv_length(words));
        g_strfreev(words);
        return arguments;
    }

    ProcessResult run(const std::string& action) const {
        return ChildProcess::run({.arguments = command(action),
                                  .workingDirectory = home,
                                  .environment = applicationEnvironment()});
    }

    ScopedEnvironment installed;
};

// "Reveal data" makes the data
// folder, as the menu does, and opens it with the desktop's folder handler. Run in a process
// namespace of its own, the quit action can reach no other application of this user, such as
// one of another test run; it ends the application as the menu's quit does.
TEST_F(DesktopEntryActionsTest, RevealDataShowShelfAndQuitActAsTheStatusMenuDoes) {
    ASSERT_FALSE(std::filesystem::exists(dataFolder()));
    expectResult(run("reveal-data"), "", "", 0);
    expectFolderOpened(dataFolder());
    EXPECT_TRUE(std::filesystem::is_directory(dataFolder()));

    std::vector<std::string> namespaced = {"unshare", "--pid", "--fork", "--mount-proc"};
    if (::geteuid() != 0)
        namespaced.insert(namespaced.begin() + 1, "--map-root-user");
    ChildProcess::Launch probe = launch("true", {}, home);
    probe.arguments.insert(probe.arguments.begin(), namespaced.begin(), namespaced.end());
    if (ChildProcess::run(probe).status != 0)
        GTEST_SKIP() << "this machine allows no process namespace";
    // The program comes last; the action runs once the test writes a line.
    const std::vector<std::string> quit = command("quit");
    ASSERT_FALSE(quit.empty());
    namespaced.insert(
        namespaced.end(),
        {"bash", "-c", R"(app=${!#}; "$app" & read -r _; "${@:1:$#-1}"; wait $!)", "bash"});
    namespaced.insert(namespaced.end(), quit.begin(), quit.end());
    startApplication({}, namespaced);
    expectResult(run("show-shelf"), "", "", 0);
    EXPECT_TRUE(waitUntil([&] { return isShelfShown(); }));
    application->writeInput("\n");
    const ProcessResult ended = application->wait(10s);
    EXPECT_FALSE(ended.timedOut);
    EXPECT_EQ(ended.status, 0) << ended.standardError;
}

} // namespace
} // namespace tidewell::testing
