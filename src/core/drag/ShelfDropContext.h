#pragma once

#include "core/drag/ShelfDragState.h"
#include "core/platform/BackgroundQueue.h"
#include "core/platform/FileSystem.h"
#include "core/platform/MainQueue.h"
#include "core/platform/PanelWindow.h"
#include "core/platform/Pointer.h"
#include "core/shelf/ShelfLayout.h"
#include "core/store/ItemStore.h"

namespace tidewell {

// Everything the shelf's drop targets and drag sources reach. The targets are rebuilt
// freely; these objects belong to the shelf and outlive every drag, including the decoding
// of a drop that goes on after its target is gone.
struct ShelfDropContext {
    ItemStore& store;
    ShelfLayout& layout;
    ShelfDragState& state;
    const Pointer& pointer;
    const FileSystem& files; // used from background threads: queries only
    BackgroundQueue& background;
    MainQueue& mainQueue;
    const PanelWindow& panel; // for the pointer-over-panel test
};

} // namespace tidewell
