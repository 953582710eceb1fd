#pragma once

#include "core/drag/DropInfo.h"
#include "core/drag/ShelfDragState.h"
#include "core/drag/ShelfDropContext.h"
#include "core/drag/ShelfItemMove.h"
#include "core/shelf/ShelfLayout.h"
#include "core/store/ItemStore.h"
#include "support/FakeBackgroundQueue.h"
#include "support/FakePanelWindow.h"
#include "support/FakePointer.h"
#include "support/FakeWorkspace.h"
#include "support/ItemsFixture.h"

#include <string>
#include <vector>

namespace tidewell::testing {

using Names = std::vector<std::string>;

// A shelf with the pinned projects A, B and C (in that order) on real folders, an open panel
// at (400, 800) sized 400 × 120, and the pointer at rest with no button held.
class DropFixture : public ItemsFixture {
protected:
    DropFixture() {
        for (const char* name : {"A", "B", "C"}) {
            ids.push_back(database.upsert({.path = folder(name), .favorite = true}).id);
            clock.advance(std::chrono::seconds(1));
        }
        queue.runUntilIdle();
        layout.setTopInset(32);
        layout.setAvailableWidth(1000);
        panel.setFrame({{400, 800}, {400, 120}});
        panel.visible = true;
    }

    std::string folder(const std::string& name) const {
        return root.makeFolder("projects/" + name);
    }
    static Names names(const std::vector<NotchItem>& items) {
        Names result;
        for (const NotchItem& item : items)
            result.push_back(item.name);
        return result;
    }
    Names favoriteNames() const { return names(store.favorites()); }
    // As a store opened now on the items file would show them.
    Names favoriteNamesInFile() {
        const ItemStore fresh{{database, localCenter, distributedCenter, queue, workspace}};
        return names(fresh.favorites());
    }
    ShelfDropContext context() {
        return {store, layout, state, pointer, files, background, queue, panel};
    }

    static DropInfo tileMove() { return {{30, 30}, {std::string(shelfItemMoveType)}}; }
    static DropInfo folderAt(double x) { return {{x, 30}, {"text/uri-list"}}; }

    FakeWorkspace workspace;
    ItemStore store{{database, localCenter, distributedCenter, queue, workspace}};
    ShelfLayout layout{queue};
    ShelfDragState state;
    FakePointer pointer;
    FakeBackgroundQueue background;
    FakePanelWindow panel;
    std::vector<Uuid> ids; // A, B, C
};

} // namespace tidewell::testing
