#pragma once

#include "core/settings/EnumCases.h"

namespace tidewell {

// The terminal the tile actions open. `automatic` and `terminal` both mean the desktop's
// default terminal; the others name one emulator, used when it is installed.
enum class TerminalApp {
    automatic,
    terminal,
    gnomeTerminal,
    konsole,
    xfce4Terminal,
    kitty,
    alacritty,
    wezterm,
    foot,
    xterm,
};

inline constexpr std::array<EnumCase<TerminalApp>, 10> terminalAppCases = {{
    {TerminalApp::automatic, "automatic", "Automatic"},
    {TerminalApp::terminal, "terminal", "Terminal"},
    {TerminalApp::gnomeTerminal, "gnome-terminal", "GNOME Terminal"},
    {TerminalApp::konsole, "konsole", "Konsole"},
    {TerminalApp::xfce4Terminal, "xfce4-terminal", "Xfce Terminal"},
    {TerminalApp::kitty, "kitty", "kitty"},
    {TerminalApp::alacritty, "alacritty", "Alacritty"},
    {TerminalApp::wezterm, "wezterm", "WezTerm"},
    {TerminalApp::foot, "foot", "foot"},
    {TerminalApp::xterm, "xterm", "XTerm"},
}};

} // namespace tidewell
