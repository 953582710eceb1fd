#include "core/launch/TileActions.h"

namespace tidewell {
namespace {

TileMenuEntry entry(TileAction action, std::string title, std::string symbol) {
    return {.action = action, .title = std::move(title), .symbol = std::move(symbol)};
}

const TileMenuEntry divider{.isDivider = true};

void runInTerminal(const TileActions::Services& services, const std::string& command,
                   const NotchItem& item) {
    services.terminal.run(command, item.path, services.settings.preferredTerminalApp());
}

// The desktop application when it is the chosen form and can be opened, else the
// command-line tool.
void startCodex(const TileActions::Services& services, const NotchItem& item) {
    if (services.settings.codexLaunchMode() == CodexLaunchMode::app &&
        services.codex.open(item.path))
        return;
    runInTerminal(services, "codex", item);
}

} // namespace

std::vector<TileMenuEntry> TileActions::menu(const NotchItem& item) {
    std::vector<TileMenuEntry> entries = {
        entry(TileAction::openFolder, "Open folder", "folder"),
        entry(TileAction::openInTerminal, "Open in Terminal", "terminal"),
        divider,
        entry(TileAction::startCodex, "Start Codex", "chevron.left.forwardslash.chevron.right"),
        entry(TileAction::startClaudeCode, "Start Claude Code", "sparkles"),
    };
    if (!item.launchCommand.empty())
        entries.push_back(entry(TileAction::runStartCommand, "Run start command", "play.fill"));
    entries.push_back(divider);
    entries.push_back(
        entry(TileAction::showInFileManager, "Show in File Manager", "arrow.forward.circle"));
    entries.push_back(entry(TileAction::configure, "Configure", "gearshape"));
    return entries;
}

void TileActions::perform(TileAction action, const NotchItem& item) {
    switch (action) {
    case TileAction::openFolder:
        services_.store.open(item);
        return;
    case TileAction::openInTerminal:
        runInTerminal(services_, "", item);
        return;
    case TileAction::startCodex:
        startCodex(services_, item);
        return;
    case TileAction::startClaudeCode:
        runInTerminal(services_, "claude", item);
        return;
    case TileAction::runStartCommand:
        runInTerminal(services_, item.launchCommand, item);
        return;
    case TileAction::showInFileManager:
        services_.workspace.reveal(item.path);
        return;
    case TileAction::configure:
        services_.openSettings();
        return;
    }
}

} // namespace tidewell
