#pragma once

#include "core/icons/IconCache.h"
#include "core/launch/TileActions.h"
#include "core/settings/SettingsView.h"
#include "support/FakeExecutableLocator.h"
#include "support/FakeFolderChooser.h"
#include "support/FakeImageChooser.h"
#include "support/FakeKeyValueStore.h"
#include "support/FakeLoginItemService.h"
#include "support/FakeProcessLauncher.h"
#include "support/FakeWorkspace.h"
#include "support/ItemsFixture.h"

namespace tidewell::testing {

// The services behind the shelf and the settings window: a real store on an items file in a
// temporary folder, tile actions that reach only fakes, preferences in memory, launch at
// login over a fake login-item service, and dialogs that answer as told.
class ShelfFixture : public ItemsFixture {
protected:
    NotchItem pin(const std::string& folder) {
        const NotchItem item = database.upsert({.path = root.makeFolder(folder), .favorite = true});
        queue.runUntilIdle();
        return item;
    }

    FakeKeyValueStore defaults;
    AppearanceSettings settings{defaults};
    FakeWorkspace workspace;
    FakeProcessLauncher processes;
    FakeExecutableLocator executables;
    TerminalLauncher terminal{
        {files, processes, executables, queue, "/bin/sh", root.makeFolder("scripts")}};
    CodexAppLauncher codex{workspace};
    ItemStore store{{database, localCenter, distributedCenter, queue, workspace}};
    TileActions actions{{store, settings, terminal, codex, workspace, [] {}}};
    FakeLoginItemService loginItems;
    // A build tree's copy: the login-item service is its only way to start at login.
    LaunchAgentManager launchAtLogin{files, loginItems, paths, {"/src/build/tidewell", false}};
    IconCache iconCache{files, folder.iconsFolder()};
    FakeFolderChooser folders;
    FakeImageChooser images;
};

} // namespace tidewell::testing
