#include "gui/settings/ItemSettingsModel.h"

#include "gui/ShelfFixture.h"

#include <QUrl>
#include <algorithm>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using Role = ItemSettingsModel::Role;
using ItemSettingsModelTest = testing::ShelfFixture;

// Each edit is saved into its own field and changes its row in place: a reset would take the
// cursor from the text field being typed in. Removing an item makes the rows anew, and the
// other keeps its open details.
TEST_F(ItemSettingsModelTest, EditsChangeOnlyTheirRowInPlaceAndDetailsStayOpenAcrossRemovals) {
    ItemSettingsModel model{{store, iconCache, folders, images, QString()}};
    int resets = 0;
    std::vector<int> changedRows;
    QObject::connect(&model, &ItemSettingsModel::modelReset, [&] { ++resets; });
    QObject::connect(&model, &ItemSettingsModel::dataChanged,
                     [&](const QModelIndex& from) { changedRows.push_back(from.row()); });
    const auto value = [&](int row, Role role) { return model.data(model.index(row), role); };
    const NotchItem item = pin("alpha");
    database.upsert({.path = root.makeFolder("recent"), .command = "make run"});
    queue.runUntilIdle();
    ASSERT_EQ(model.rowCount(), 2);
    const int row = value(0, Role::ItemIdRole).toString().toStdString() == item.id.text() ? 0 : 1;
    EXPECT_EQ(value(1 - row, Role::LaunchCommandRole).toString(), "make run");
    resets = 0;
    changedRows.clear();
    model.setName(row, "Site");
    model.setInitials(row, "Q");
    model.setTintHex(row, "#112233");
    model.setLaunchCommand(row, "npm");
    model.setIsFavorite(row, false);
    images.choice = root.write("elsewhere/logo.png", "png bytes");
    model.chooseIcon(row);
    folders.choice = root.makeFolder("moved");
    model.chooseFolder(row);
    model.setName(5, "out of range: ignored");
    NotchItem expected = item;
    expected.name = "Site";
    expected.initials = "Q";
    expected.tintHex = "#112233";
    expected.launchCommand = "npm";
    expected.isFavorite = false;
    expected.iconPath = iconCache.directory() + "/" + item.id.text() + ".png";
    expected.path = *folders.choice;
    const std::vector<NotchItem> saved = database.load();
    const auto found = std::ranges::find(saved, item.id, &NotchItem::id);
    ASSERT_NE(found, saved.end());
    EXPECT_EQ(*found, expected);
    EXPECT_EQ(value(row, Role::IconSourceRole).toUrl().toLocalFile().toStdString(),
              *expected.iconPath);
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(changedRows, std::vector<int>(7, row));
    changedRows.clear();
    model.toggleDetails(1 - row);
    model.toggleDetails(-1);
    EXPECT_TRUE(value(1 - row, Role::ShowsDetailsRole).toBool());
    EXPECT_FALSE(value(row, Role::ShowsDetailsRole).toBool());
    EXPECT_EQ(changedRows, (std::vector<int>{1 - row}));
    model.remove(row);
    EXPECT_EQ(resets, 1);
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_NE(value(0, Role::ItemIdRole).toString().toStdString(), item.id.text());
    EXPECT_TRUE(value(0, Role::ShowsDetailsRole).toBool());
}

} // namespace
} // namespace tidewell
