#include "core/launch/TerminalLauncher.h"

#include "core/items/Uuid.h"
#include "core/platform/Error.h"
#include "core/platform/PathText.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <string_view>

namespace tidewell {
namespace {

// A program that opens a window running the argument vector that follows its options.
struct Emulator {
    TerminalApp app;
    std::string_view executable;
    std::vector<std::string_view> options;
};

// The desktop's own choice first, then the emulators in the order they are tried when
// the desktop names none.
const std::vector<Emulator>& emulators() {
    static const std::vector<Emulator> all = {
        {TerminalApp::terminal, "xdg-terminal-exec", {}},
        {TerminalApp::terminal, "x-terminal-emulator", {"-e"}},
        {TerminalApp::gnomeTerminal, "gnome-terminal", {"--"}},
        {TerminalApp::konsole, "konsole", {"-e"}},
        {TerminalApp::xfce4Terminal, "xfce4-terminal", {"-x"}},
        {TerminalApp::kitty, "kitty", {}},
        {TerminalApp::alacritty, "alacritty", {"-e"}},
        {TerminalApp::wezterm, "wezterm", {"start", "--"}},
        {TerminalApp::foot, "foot", {}},
        {TerminalApp::xterm, "xterm", {"-e"}},
    };
    return all;
}

bool isInstalled(const Emulator& emulator, const ExecutableLocator& executables) {
    return executables.isInstalled(std::string(emulator.executable));
}

const Emulator* desktopDefault(const ExecutableLocator& executables) {
    const auto& all = emulators();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Emulator& emulator) {
        return isInstalled(emulator, executables);
    });
    return found == all.end() ? nullptr : &*found;
}

// The chosen emulator when it is installed, else the desktop's default; none when no
// terminal at all is installed.
const Emulator* emulatorFor(TerminalApp terminal, const ExecutableLocator& executables) {
    const auto& all = emulators();
    const auto chosen = std::find_if(all.begin(), all.end(), [&](const Emulator& emulator) {
        return emulator.app == terminal && terminal != TerminalApp::terminal;
    });
    if (chosen != all.end() && isInstalled(*chosen, executables))
        return &*chosen;
    return desktopDefault(executables);
}

std::string shellOrDefault(const std::string& shell) {
    return shell.empty() ? "/bin/sh" : shell;
}

// A plain POSIX shell only knows ".", the others read a file into the running shell
// with "source".
std::string_view sourceCommand(const std::string& shell) {
    static constexpr std::array<std::string_view, 5> withSource = {"bash", "zsh", "fish", "tcsh",
                                                                   "csh"};
    const std::string name = PathText::lastComponent(shell);
    const bool knowsSource =
        std::find(withSource.begin(), withSource.end(), name) != withSource.end();
    return knowsSource ? "source" : ".";
}

// Some terminals pass the arguments through a shell or a command line of their own, where
// line breaks would split the command: such lines run from a private script file instead.
std::optional<std::string> writeScript(FileSystem& files, const std::string& folder,
                                       const std::string& text) {
    const std::string path = folder + "/tidewell-cmd-" + Uuid::random().text() + ".sh";
    try {
        files.writeNewPrivateFile(path, text);
    } catch (const Error&) {
        return std::nullopt;
    }
    return path;
}

void removeLater(MainQueue& queue, FileSystem& files, const std::string& path) {
    constexpr auto scriptLifetime = std::chrono::seconds(10);
    queue.postAfter(scriptLifetime, [&files, path] {
        try {
            files.removeFile(path);
        } catch (const Error&) {
            // Left for the system's clean-up of temporary files.
        }
    });
}

} // namespace

void TerminalLauncher::run(const std::string& command, const std::string& folder,
                           TerminalApp terminal) {
    std::string text = line(command, folder);
    std::optional<std::string> script;
    if (text.find_first_of("\n\r") != std::string::npos) {
        script = writeScript(services_.files, services_.scriptFolder, text);
        if (!script)
            return;
        text = std::string(sourceCommand(shellOrDefault(services_.shell))) + " " +
               singleQuoted(*script);
    }
    const auto arguments = commandLine(terminal, text);
    if (!arguments.empty()) {
        try {
            services_.launcher.startDetached(arguments.front(),
                                             {arguments.begin() + 1, arguments.end()});
        } catch (const Error&) {
            // A terminal that does not start is nothing to report.
        }
    }
    if (script)
        removeLater(services_.queue, services_.files, *script);
}

std::string TerminalLauncher::line(const std::string& command, const std::string& folder) {
    std::string text = "cd " + singleQuoted(folder);
    if (!command.empty())
        text += " && " + command;
    return text;
}

std::string TerminalLauncher::singleQuoted(const std::string& text) {
    std::string quoted = "'";
    for (const char character : text) {
        if (character == '\'')
            quoted += "'\\''";
        else
            quoted += character;
    }
    return quoted + "'";
}

std::vector<std::string> TerminalLauncher::commandLine(TerminalApp terminal,
                                                       const std::string& line) const {
    const Emulator* emulator = emulatorFor(terminal, services_.executables);
    if (!emulator)
        return {};
    const std::string shell = shellOrDefault(services_.shell);
    std::vector<std::string> arguments{std::string(emulator->executable)};
    arguments.insert(arguments.end(), emulator->options.begin(), emulator->options.end());
    // A line break, not "; ", before the shell that stays: a start command ending in "&" or
    // in a comment would otherwise swallow it or be a syntax error.
    arguments.insert(arguments.end(),
                     {shell, "-i", "-c", line + "\nexec " + singleQuoted(shell) + " -i"});
    return arguments;
}

TerminalApp TerminalLauncher::resolved(TerminalApp terminal) const {
    const Emulator* emulator = emulatorFor(terminal, services_.executables);
    return emulator ? emulator->app : TerminalApp::terminal;
}

} // namespace tidewell
