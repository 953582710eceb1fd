#include "core/settings/ItemSettingsRow.h"

#include "support/FakeFolderChooser.h"
#include "support/FakeImageChooser.h"
#include "support/FakeWorkspace.h"
#include "support/ItemsFixture.h"

namespace tidewell::testing {
namespace {

// A row for one pinned project, over a real store, items file and icon cache.
class ItemSettingsRowTest : public ItemsFixture {
protected:
    ItemSettingsRowTest() { distributedCenter.posted.clear(); } // the project's recording

    std::size_t saves() const { return distributedCenter.posted.size(); }
    NotchItem saved() { return database.load().at(0); }

    NotchItem original =
        database.upsert({.path = root.makeFolder("projects/site"), .favorite = true});
    FakeWorkspace workspace;
    ItemStore store{{database, localCenter, distributedCenter, queue, workspace}};
    IconCache iconCache{files, folder.iconsFolder()};
    FakeFolderChooser folders;
    FakeImageChooser images;
    ItemSettingsRow row{{store, iconCache, folders, images}, original.id};
};

TEST_F(ItemSettingsRowTest, EachEditSavesOnceWithOnlyThatFieldExactlyAsTyped) {
    const struct {
        std::string NotchItem::*field;
        std::string value;
    } edits[] = {{&NotchItem::name, "   "},
                 {&NotchItem::initials, "x"},
                 {&NotchItem::tintHex, "#12G"},
                 {&NotchItem::launchCommand, ""}};
    NotchItem expected = original;
    for (const auto& [field, value] : edits) {
        const std::size_t savesBefore = saves();
        row.saving(field, value);
        expected.*field = value;
        EXPECT_EQ(saves(), savesBefore + 1) << value;
        EXPECT_EQ(row.item(), expected) << "the store's copy, before any reload";
        EXPECT_EQ(saved(), expected);
    }
    row.saving(&NotchItem::isFavorite, false);
    expected.isFavorite = false;
    EXPECT_EQ(saved(), expected);
}

// A chosen icon is copied under the item's id, and a failed copy clears it; a chosen folder
// changes only the path; cancelling saves nothing; removing takes the item out of the file.
TEST_F(ItemSettingsRowTest, ChoosingAnIconOrAFolderSavesItCancellingNothingRemovingAll) {
    row.chooseIcon();
    row.chooseFolder();
    EXPECT_EQ(saves(), 0u);
    EXPECT_EQ(folders.prompts, std::vector<std::string>{"Choose"});

    images.choice = root.write("elsewhere/Logo.PNG", "image bytes");
    row.chooseIcon();
    const std::string copy = folder.iconsFolder() + "/" + original.id.text() + ".png";
    EXPECT_EQ(saved().iconPath, copy);
    EXPECT_EQ(files.readFile(copy), "image bytes");
    images.choice = root.path() + "/elsewhere/gone.png";
    row.chooseIcon();
    EXPECT_EQ(row.item()->iconPath, std::nullopt);

    folders.choice = root.makeFolder("moved/site-v2");
    row.chooseFolder();
    NotchItem expected = original;
    expected.path = *folders.choice;
    EXPECT_EQ(saved(), expected);

    row.toggleDetails();
    EXPECT_TRUE(row.showsDetails());
    row.remove();
    EXPECT_EQ(row.item(), std::nullopt);
    EXPECT_TRUE(database.load().empty());
}

} // namespace
} // namespace tidewell::testing
