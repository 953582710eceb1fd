#include "DropFixture.h"
#include "core/drag/ShelfContainerDrop.h"
#include "core/drag/ShelfGapDrop.h"
#include "core/drag/ShelfTileDrop.h"

namespace tidewell::testing {
namespace {

using Position = ShelfDropPosition;

class FolderDropTest : public DropFixture {
protected:
    // Opens the gap in front of B, as a folder hovering over B does.
    void openGapBeforeB() { ShelfTileDrop(ids[1], context()).dropEntered(folderAt(30)); }
    void expectGapClosed() {
        EXPECT_FALSE(state.folderDropPosition() || state.lastFolderHoverPointer() ||
                     state.isCommittingFolderDrop() || layout.isReservingSlot());
    }
    std::string fileUrl(const std::string& path) const { return "file://" + path; }
};

TEST_F(FolderDropTest, FoldersOfTheUriListAreAddedAtOnceInDragOrder) {
    openGapBeforeB();
    const std::string uriList = fileUrl(folder("X")) + "\r\n" +
                                fileUrl(root.write("projects/notes.txt")) + "\r\n" +
                                fileUrl(folder("Y")) + "\r\n";
    EXPECT_TRUE(ShelfGapDrop(context()).performDrop(folderAt(30), {.uriList = uriList}));
    EXPECT_EQ(favoriteNames(), (Names{"A", "X", "Y", "B", "C"}));
    EXPECT_EQ(background.tasks.size(), 0u);
    expectGapClosed();
    EXPECT_EQ(layout.expandedSize(), layout.size(5, 0));

    openGapBeforeB();
    EXPECT_FALSE(ShelfGapDrop(context()).performDrop(folderAt(30), {}));
    EXPECT_EQ(favoriteNames(), (Names{"A", "X", "Y", "B", "C"}));
    expectGapClosed();

    // Only drags that offer file locations, as a list or as text, are taken.
    for (const auto& [format, taken] :
         {std::pair{"text/uri-list", true}, std::pair{"text/plain;charset=utf-8", true},
          std::pair{"image/png", false}})
        EXPECT_EQ(ShelfGapDrop(context()).validateDrop({{30, 30}, {format}}), taken) << format;
}

TEST_F(FolderDropTest, DecodedFoldersKeepDragOrderWhateverOrderDecodingFinishesIn) {
    ShelfTileDrop onB(ids[1], context());
    EXPECT_TRUE(onB.performDrop(folderAt(30), {.plainText = folder("X") + "\n" + folder("Y")}));
    EXPECT_TRUE(state.isCommittingFolderDrop());
    ASSERT_EQ(background.tasks.size(), 2u);

    // Hovering and leaving change nothing while the drop is decoded.
    onB.dropUpdated(folderAt(30));
    onB.dropExited(folderAt(30));
    EXPECT_FALSE(state.folderDropPosition());
    EXPECT_EQ(queue.pendingCount(), 0u);

    background.run(1);
    queue.runUntilIdle();
    EXPECT_TRUE(state.isCommittingFolderDrop());
    background.run(0);
    queue.runUntilIdle();
    EXPECT_EQ(favoriteNames(), (Names{"A", "X", "Y", "B", "C"}));
    expectGapClosed();

    // When no provider yields a folder, the list is read again once decoding has finished.
    const std::string late = root.path() + "/projects/late";
    EXPECT_TRUE(ShelfGapDrop(context()).performDrop(folderAt(30), {.uriList = fileUrl(late)}));
    background.run(0);
    root.makeFolder("projects/late");
    queue.runUntilIdle();
    EXPECT_EQ(favoriteNames(), (Names{"A", "X", "Y", "B", "C", "late"}));
    expectGapClosed();
}

TEST_F(FolderDropTest, AGapBehindTheLastTileLandsInFrontOfItOnlyWhenDroppedOnIt) {
    state.setFolderDropPosition(Position::after(ids[2]), true);
    EXPECT_TRUE(ShelfTileDrop(ids[2], context())
                    .performDrop(folderAt(30), {.uriList = fileUrl(folder("X"))}));
    EXPECT_EQ(favoriteNames(), (Names{"A", "B", "X", "C"}));

    state.setFolderDropPosition(Position::after(ids[2]), true);
    EXPECT_TRUE(
        ShelfContainerDrop(context()).performDrop(folderAt(30), {.uriList = fileUrl(folder("Y"))}));
    EXPECT_EQ(favoriteNames(), (Names{"A", "B", "X", "C", "Y"}));
}

} // namespace
} // namespace tidewell::testing
