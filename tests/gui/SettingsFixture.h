#pragma once

#include "core/icons/IconCache.h"
#include "core/settings/SettingsView.h"
#include "gui/ShelfFixture.h"
#include "support/FakeFolderChooser.h"
#include "support/FakeImageChooser.h"
#include "support/FakeLoginItemService.h"

namespace tidewell::testing {

// The shelf's services with what the settings window adds: launch at login over a fake
// login-item service, an icon cache in the data folder, and dialogs that answer as told.
class SettingsFixture : public ShelfFixture {
protected:
    // Saves of the items file so far: each one is announced to other processes.
    std::size_t saves() const { return distributedCenter.posted.size(); }

    FakeLoginItemService loginItems;
    // A build tree's copy: the login-item service is its only way to start at login.
    LaunchAgentManager launchAtLogin{files, loginItems, paths, {"/src/build/tidewell", false}};
    IconCache iconCache{files, folder.iconsFolder()};
    FakeFolderChooser folders;
    FakeImageChooser images;
    SettingsView::Services viewServices{.store = store,
                                        .appearance = settings,
                                        .launchAtLogin = launchAtLogin,
                                        .defaults = defaults,
                                        .localCenter = localCenter,
                                        .folders = folders,
                                        .files = files,
                                        .terminal = terminal,
                                        .codex = codex,
                                        .canHideFromScreenCapture = false};
};

} // namespace tidewell::testing
