#pragma once

#include "core/drag/DropInfo.h"
#include "core/drag/ShelfDragState.h"
#include "core/drag/ShelfDropContext.h"
#include "core/drag/ShelfItemMove.h"
#include "core/platform/BackgroundQueue.h"
#include "core/shelf/ShelfLayout.h"
#include "core/store/ItemStore.h"
#include "support/FakePanelWindow.h"
#include "support/FakeWorkspace.h"
#include "support/ItemsFixture.h"

#include <string>
#include <vector>

namespace tidewell::testing {

using Names = std::vector<std::string>;

// Keeps the tasks until the test runs them, in whatever order it chooses.
class FakeBackgroundQueue : public BackgroundQueue {
public:
    void post(std::function<void()> task) override { tasks.push_back(std::move(task)); }
    // Runs and forgets the task at `index` among those still pending, in posting order.
    void run(std::size_t index) {
        const auto task = std::move(tasks.at(index));
        tasks.erase(tasks.begin() + static_cast<std::ptrdiff_t>(index));
        task();
    }

    std::vector<std::function<void()>> tasks;
};

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
    Names favoriteNames() const { return names(store.favorites()); }
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
