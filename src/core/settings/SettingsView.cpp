#include "core/settings/SettingsView.h"

#include "core/notify/NotificationNames.h"
#include "core/platform/Error.h"

namespace tidewell {

SettingsView::SettingsView(Services services)
    : services_(services), startsAtLogin_(services_.launchAtLogin.isInstalled()),
      terminalCaption_(missingTerminalCaption()), codexCaption_(missingCodexCaption()) {
    appearanceConnection_ = services_.appearance.changed.connect([this] { refreshCaptions(); });
    // Installs and uninstalls from anywhere (the status menu too) post this; the switch then
    // shows what is really installed.
    loginObserver_ = services_.localCenter.addObserver(tidewellLoginStatusChanged, [this] {
        startsAtLogin_ = services_.launchAtLogin.isInstalled();
        changed.emit();
    });
}

SettingsView::~SettingsView() {
    services_.localCenter.removeObserver(loginObserver_);
}

void SettingsView::setStartsAtLogin(bool value) {
    assign(startsAtLogin_, value);
    try {
        if (value)
            services_.launchAtLogin.install(services_.defaults, services_.localCenter);
        else
            services_.launchAtLogin.uninstall(services_.defaults, services_.localCenter);
    } catch (const Error&) {
    }
    // A failure posts no status notification, so the switch is corrected here.
    assign(startsAtLogin_, services_.launchAtLogin.isInstalled());
}

void SettingsView::setIsDropTargeted(bool value) {
    assign(isDropTargeted_, value);
}

void SettingsView::refreshCaptions() {
    auto terminal = missingTerminalCaption();
    auto codex = missingCodexCaption();
    if (terminal == terminalCaption_ && codex == codexCaption_)
        return;
    terminalCaption_ = std::move(terminal);
    codexCaption_ = std::move(codex);
    changed.emit();
}

std::optional<std::string> SettingsView::missingTerminalCaption() const {
    const TerminalApp preferred = services_.appearance.preferredTerminalApp();
    if (preferred == TerminalApp::automatic || preferred == TerminalApp::terminal ||
        services_.terminal.resolved(preferred) == preferred)
        return std::nullopt;
    return std::string(caseOf(terminalAppCases, preferred).displayName) +
           " not found — using Terminal instead.";
}

std::optional<std::string> SettingsView::missingCodexCaption() const {
    if (services_.appearance.codexLaunchMode() != CodexLaunchMode::app ||
        services_.codex.isInstalled())
        return std::nullopt;
    return "Codex app not found — using the CLI instead.";
}

std::optional<std::string> SettingsView::screenCaptureCaption() const {
    if (services_.canHideFromScreenCapture)
        return std::nullopt;
    return "Not supported on this desktop: screen recordings still show the shelf.";
}

void SettingsView::chooseNewFolder() {
    if (const auto folder = services_.folders.chooseFolder("Add"))
        services_.store.add(*folder, true);
}

bool SettingsView::handleDrop(const std::vector<std::string>& paths) {
    std::vector<std::string> folders;
    for (const std::string& path : paths)
        if (services_.files.isDirectory(path))
            folders.push_back(path);
    if (folders.empty())
        return false;
    services_.store.add(folders, std::nullopt);
    return true;
}

void SettingsView::assign(bool& state, bool value) {
    if (state == value)
        return;
    state = value;
    changed.emit();
}

} // namespace tidewell
