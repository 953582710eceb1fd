#include "e2e/EndToEndTest.h"
#include "linux/SingleInstanceGuard.h"

#include <glib.h>
#include <regex>
#include <unistd.h>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;

class ShelfWindowTest : public RunningApplicationTest {
protected:
    // The programs are found as if installed.
    ShelfWindowTest() { installed.set("PATH", buildFolder() + ":" + std::getenv("PATH")); }

    // The desktop entry's action, read as a launcher reads it: through GLib's unescaping and
    // quoting rules.
    static std::vector<std::string> command(const std::string& action) {
        g_autoptr(GKeyFile) entry = g_key_file_new();
        EXPECT_TRUE(
            g_key_file_load_from_file(entry, TIDEWELL_DESKTOP_ENTRY, G_KEY_FILE_NONE, nullptr));
        g_autofree char* line =
            g_key_file_get_string(entry, ("Desktop Action " + action).c_str(), "Exec", nullptr);
        g_auto(GStrv) words = nullptr;
        if (!line || !g_shell_parse_argv(line, nullptr, &words, nullptr))
            return {};
        return {words, words + g_strv_length(words)};
    }

    ProcessResult run(const std::string& action) const {
        return ChildProcess::run({.arguments = command(action),
                                  .workingDirectory = home,
                                  .environment = applicationEnvironment()});
    }

    ScopedEnvironment installed;
};

// Each failed start says why in one line; the tool works all the same. The user interface is
// loaded from beside the program or from the library folder of its prefix: a copy of the
// program in a folder of its own finds neither. In a Wayland session whose compositor has no
// layer shell, with XWayland's display beside it (here Xvfb's), the application chooses X11
// with a trigger window at the top centre. A second start shows the running one's shelf for a
// moment and ends quietly. The desktop entry's actions act as the status menu does.
TEST_F(
    ShelfWindowTest,
    FailedStartsSayWhyATriggerWindowOpensTheShelfWithoutLayerShellAndTheEntryActionsActAsTheMenu) {
    // "Reveal data" makes the data folder, as the status menu does, and opens it with the
    // desktop's folder handler.
    ASSERT_FALSE(std::filesystem::exists(dataFolder()));
    expectResult(run("reveal-data"), "", "", 0);
    expectFolderOpened(dataFolder());
    EXPECT_TRUE(std::filesystem::is_directory(dataFolder()));
    const PostedSignals startSignals(environment());
    const std::string program = root.makeFolder("alone") + "/tidewell";
    fs::copy_file(tidewellPath(), program);

    // A Wayland compositor without layer shell, as GNOME's is: weston on its headless backend.
    const ChildProcess weston(
        {.arguments = {"weston", "--backend=headless-backend.so", "--no-config", "--idle-time=0",
                       "--socket=weston-0"},
         .workingDirectory = "/",
         .environment = {{"PATH", std::getenv("PATH")}, {"XDG_RUNTIME_DIR", runtimeFolder}}});
    ASSERT_TRUE(waitUntil([&] { return fs::exists(runtimeFolder + "/weston-0"); }, 10s));
    const std::map<std::string, std::string> noLayerShell = {{"WAYLAND_DISPLAY", "weston-0"}};
    const struct {
        std::string program;
        std::map<std::string, std::string> variables;
        std::string error; // a pattern
    } failedStarts[] = {
        {program, {}, "tidewell: cannot load the user interface: .+\n"},
        {tidewellPath(), noLayerShell,
         "tidewell: no window system: the Wayland compositor has no layer shell and DISPLAY is "
         "not set for XWayland\n"},
        {tidewellPath(),
         {},
         "tidewell: no window system: neither WAYLAND_DISPLAY nor DISPLAY is set\n"},
    };
    for (const auto& [start, variables, error] : failedStarts) {
        const ProcessResult result = ChildProcess::run(launch(start, {}, home, variables), 5s);
        EXPECT_TRUE(std::regex_match(result.standardError, std::regex(error)))
            << result.standardError;
        EXPECT_EQ(result.standardOutput, "");
        EXPECT_EQ(result.status, 1);
    }
    EXPECT_TRUE(fs::is_regular_file(dataFolder() + "/app.lock"));
    walk({{{"list"}, ""}}, home, noLayerShell);
    EXPECT_TRUE(startSignals.received().empty());

    addProject("alpha");
    auto wayland = noLayerShell;
    wayland["XDG_SESSION_TYPE"] = "wayland";
    // Run in a process namespace of its own, the quit action can reach no other application of
    // this user, such as one of another test run. The program comes last; the action runs once
    // the test writes a line.
    std::vector<std::string> launcher = {"unshare", "--pid", "--fork", "--mount-proc"};
    if (::geteuid() != 0)
        launcher.insert(launcher.begin() + 1, "--map-root-user");
    ChildProcess::Launch probe = launch("true", {}, home);
    probe.arguments.insert(probe.arguments.begin(), launcher.begin(), launcher.end());
    const bool isNamespaced = ChildProcess::run(probe).status == 0;
    const std::vector<std::string> quit = command("quit");
    ASSERT_FALSE(quit.empty());
    launcher.insert(
        launcher.end(),
        {"bash", "-c", R"(app=${!#}; "$app" & read -r _; "${@:1:$#-1}"; wait $!)", "bash"});
    launcher.insert(launcher.end(), quit.begin(), quit.end());
    startApplication(wayland, isNamespaced ? launcher : std::vector<std::string>{});
    std::optional<unsigned long> trigger;
    ASSERT_TRUE(waitUntil(
        [&] { return (trigger = inspector.findWindow("Tidewell Trigger")).has_value(); }));
    // Nothing more, the status icon without a status-area host included.
    EXPECT_EQ(application->standardError(),
              "tidewell: window system: X11 under XWayland (the compositor has no layer shell): "
              "the shelf opens from a trigger window\n");
    EXPECT_EQ(inspector.rootGeometry(*trigger), (WindowRect{870, 0, 180, 28}));
    // A window mapped later does not cover the trigger.
    hand.createWindow(0, 0, screenWidth, 100);
    // The trigger's corners, the top row included.
    for (const auto& [x, y] : {std::pair(870, 0), std::pair(1049, 0), std::pair(1049, 27)}) {
        hand.movePointerTo(x, y);
        EXPECT_TRUE(waitUntil([&] { return isShelfShown(); })) << x << "," << y;
        // Placed by no window manager: those of Wayland compositors place X windows freely.
        EXPECT_TRUE(std::ranges::count(inspector.viewableOverrideRedirectWindows(), panel));
        hand.movePointerTo(x, 600);
        EXPECT_TRUE(waitUntil([&] { return !isShelfShown(); })) << x << "," << y;
    }
    hand.movePointerTo(screenWidth / 2, 600);
    ASSERT_FALSE(
        SingleInstanceGuard::acquire(DataFolder({.home = home, .applicationSupport = dataHome})))
        << "the running application does not hold the lock";
    const PostedSignals signals(environment());
    expectResult(ChildProcess::run(launch(tidewellPath(), {}, home, applicationEnvironment())), "",
                 "", 0);
    EXPECT_TRUE(signals.waitFor("Tidewell.showShelf"));
    ASSERT_TRUE(waitUntil([&] { return isShelfShown(); }));
    EXPECT_EQ(inspector.rootGeometry(panel), panelGeometry(1));
    EXPECT_TRUE(waitUntil([&] { return !isShelfShown(); })) << "still shown";

    // The entry's other actions act as the status menu does.
    expectResult(run("show-shelf"), "", "", 0);
    EXPECT_TRUE(waitUntil([&] { return isShelfShown(); }));
    if (!isNamespaced)
        GTEST_SKIP() << "this machine allows no process namespace: the quit action is not run";
    application->writeInput("\n");
    const ProcessResult ended = application->wait(10s);
    EXPECT_FALSE(ended.timedOut);
    EXPECT_EQ(ended.status, 0) << ended.standardError;
}

} // namespace
} // namespace tidewell::testing
