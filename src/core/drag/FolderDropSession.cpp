#include "core/drag/FolderDropSession.h"

#include "core/drag/FolderDropDecoder.h"

#include <chrono>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tidewell::FolderDropSession {
namespace {

using namespace std::chrono_literals;

constexpr auto closeDelayWhileHeld = 400ms;
constexpr auto closeDelayAfterRelease = 90ms;
constexpr double panelMarginX = 16;
constexpr double panelMarginY = 14;
constexpr double panelVisibilityFloor = 0.01;

int favoritesCount(const ShelfDropContext& context) {
    return static_cast<int>(context.store.favorites().size());
}

void finish(const std::vector<std::string>& paths, const std::optional<Uuid>& insertBefore,
            ShelfDropContext& context) {
    if (!paths.empty())
        context.store.add(paths, insertBefore);
    context.state.setFolderDropPosition(std::nullopt, true);
    context.state.setLastFolderHoverPointer(std::nullopt);
    context.state.setIsCommittingFolderDrop(false);
    context.layout.clearFolderSlot(favoritesCount(context));
}

// The providers' results by provider index, so that the folders keep the drag order
// whatever order the decoding finishes in. Touched on the main thread only.
struct Collection {
    DroppedData data;
    std::optional<Uuid> insertBefore;
    std::vector<std::optional<std::string>> paths;
    std::size_t outstanding = 0;
};

void collect(const std::shared_ptr<Collection>& collection, std::size_t index,
             std::optional<std::string> path, ShelfDropContext context) {
    collection->paths[index] = std::move(path);
    if (--collection->outstanding > 0)
        return;
    std::vector<std::string> paths;
    for (auto& found : collection->paths)
        if (found)
            paths.push_back(std::move(*found));
    if (paths.empty())
        paths =
            FolderDropDecoder::directoryPathsFromDragPasteboard(collection->data, context.files);
    finish(paths, collection->insertBefore, context);
}

void decodeInBackground(std::vector<FolderDropDecoder::ItemProvider> providers,
                        const DroppedData& data, const std::optional<Uuid>& insertBefore,
                        const ShelfDropContext& context) {
    auto collection = std::make_shared<Collection>(
        Collection{data, insertBefore, std::vector<std::optional<std::string>>(providers.size()),
                   providers.size()});
    for (std::size_t index = 0; index < providers.size(); ++index) {
        context.background.post(
            [provider = std::move(providers[index]), index, collection, context] {
                auto path = FolderDropDecoder::path(provider, context.files);
                context.mainQueue.post([collection, index, path = std::move(path), context] {
                    collect(collection, index, path, context);
                });
            });
    }
}

void clear(ShelfDropContext& context) {
    if (pointerIsOverShelfPanel(context.pointer, context.panel))
        return;
    context.state.setFolderDropPosition(std::nullopt, true);
    context.state.setLastFolderHoverPointer(std::nullopt);
    context.layout.clearFolderSlot(favoritesCount(context));
}

} // namespace

bool commit(const DroppedData& data, const std::optional<Uuid>& insertBefore,
            ShelfDropContext& context) {
    context.layout.voidScheduledSlotClears();
    const auto paths = FolderDropDecoder::directoryPathsFromDragPasteboard(data, context.files);
    if (!paths.empty()) {
        finish(paths, insertBefore, context);
        return true;
    }
    auto providers = FolderDropDecoder::itemProviders(data);
    if (providers.empty()) {
        finish({}, insertBefore, context);
        return false;
    }
    context.state.setIsCommittingFolderDrop(true);
    decodeInBackground(std::move(providers), data, insertBefore, context);
    return true;
}

void scheduleClearIfNeeded(ShelfDropContext& context) {
    if (context.state.isCommittingFolderDrop())
        return;
    const bool isHeld = (context.pointer.pressedButtons() & Pointer::primaryButton) != 0;
    context.layout.voidScheduledSlotClears();
    context.layout.scheduleSlotClear(isHeld ? closeDelayWhileHeld : closeDelayAfterRelease,
                                     [context]() mutable { clear(context); });
}

bool pointerIsOverShelfPanel(const Pointer& pointer, const PanelWindow& panel) {
    return panel.isVisible() && panel.alpha() > panelVisibilityFloor &&
           panel.frame().grown(panelMarginX, panelMarginY).contains(pointer.location());
}

} // namespace tidewell::FolderDropSession
