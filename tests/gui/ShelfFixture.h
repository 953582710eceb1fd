#pragma once

#include "core/launch/TileActions.h"
#include "support/FakeExecutableLocator.h"
#include "support/FakeKeyValueStore.h"
#include "support/FakeProcessLauncher.h"
#include "support/FakeWorkspace.h"
#include "support/ItemsFixture.h"

namespace tidewell::testing {

// The services behind the shelf: a real store on an items file in a temporary folder, tile
// actions that reach only fakes, and preferences in memory.
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
};

} // namespace tidewell::testing
