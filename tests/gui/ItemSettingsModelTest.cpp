#include "gui/settings/ItemSettingsModel.h"

#include "gui/SettingsFixture.h"
#include "gui/shelf/FavoritesModel.h"
#include "gui/shelf/ItemLookup.h"
#include "gui/shelf/TileMenu.h"

#include <QAction>
#include <QMenu>
#include <QUrl>
#include <gtest/gtest.h>
#include <memory>

namespace tidewell {
namespace {

class ItemSettingsModelTest : public testing::SettingsFixture {
protected:
    ItemSettingsModelTest() {
        QObject::connect(&model, &ItemSettingsModel::modelReset, [this] { ++resets; });
        QObject::connect(&model, &ItemSettingsModel::dataChanged,
                         [this](const QModelIndex& from) { changedRows.push_back(from.row()); });
    }

    QVariant value(int row, ItemSettingsModel::Role role) const {
        return model.data(model.index(row), role);
    }
    // The pinned item that the row shows.
    NotchItem itemAt(int row) const {
        const std::string id = value(row, ItemSettingsModel::ItemIdRole).toString().toStdString();
        return *std::ranges::find_if(pinned,
                                     [&](const NotchItem& item) { return item.id.text() == id; });
    }
    QVariant tileValue(const NotchItem& item, FavoritesModel::Role role) const {
        for (int row = 0; row < tiles.rowCount(); ++row)
            if (tiles.data(tiles.index(row), FavoritesModel::ItemIdRole).toString().toStdString() ==
                item.id.text())
                return tiles.data(tiles.index(row), role);
        return {};
    }
    // Pins the folders, then forgets how the rows were told of it.
    void pinAll(std::initializer_list<std::string> folders) {
        for (const std::string& folder : folders)
            pinned.push_back(pin(folder));
        resets = 0;
        changedRows.clear();
    }
    NotchItem stored(const NotchItem& item) {
        for (const NotchItem& candidate : database.load())
            if (candidate.id == item.id)
                return candidate;
        ADD_FAILURE() << "not in the items file";
        return {};
    }
    void typeInto(void (ItemSettingsModel::*setter)(int, const QString&), int row,
                  const QString& text) {
        for (qsizetype length = 1; length <= text.size(); ++length)
            (model.*setter)(row, text.left(length));
    }
    std::vector<std::string> menuFor(const NotchItem& item) {
        const std::unique_ptr<QMenu> menu(
            TileMenu::build(*currentItem(store, QString::fromStdString(item.id.text())),
                            {store, actions, localCenter, settings}));
        std::vector<std::string> titles;
        for (const QAction* action : menu->actions())
            titles.push_back(action->text().toStdString());
        return titles;
    }

    const QString applicationFolder = QString::fromStdString(root.makeFolder("application"));
    ItemSettingsModel model{{store, iconCache, folders, images, applicationFolder}};
    FavoritesModel tiles{store, iconCache, applicationFolder};
    std::vector<NotchItem> pinned;
    int resets = 0;
    std::vector<int> changedRows;
};

TEST_F(ItemSettingsModelTest, RowsShowEveryItemInTheStoresOrderWithItsFields) {
    pinAll({"alpha"});
    database.upsert({.path = root.makeFolder("recent"), .command = "make run"});
    queue.runUntilIdle();

    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.count(), 2);
    for (int row = 0; row < 2; ++row)
        EXPECT_EQ(value(row, ItemSettingsModel::ItemIdRole).toString().toStdString(),
                  store.items().at(static_cast<std::size_t>(row)).id.text());
    const int alpha = store.items().front().id == pinned[0].id ? 0 : 1;
    const NotchItem& item = pinned[0];
    EXPECT_EQ(value(alpha, ItemSettingsModel::NameRole).toString(), "alpha");
    EXPECT_EQ(value(alpha, ItemSettingsModel::PathRole).toString().toStdString(), item.path);
    EXPECT_TRUE(value(alpha, ItemSettingsModel::IsFavoriteRole).toBool());
    EXPECT_EQ(value(alpha, ItemSettingsModel::InitialsRole).toString().toStdString(),
              item.initials);
    EXPECT_EQ(value(alpha, ItemSettingsModel::TintHexRole).toString().toStdString(), item.tintHex);
    EXPECT_EQ(value(alpha, ItemSettingsModel::TintRole).value<QColor>(),
              QColor::fromString(QString::fromStdString(item.tintHex)));
    EXPECT_TRUE(value(alpha, ItemSettingsModel::IconSourceRole).toUrl().isEmpty());
    EXPECT_FALSE(value(alpha, ItemSettingsModel::ShowsDetailsRole).toBool());
    EXPECT_FALSE(value(1 - alpha, ItemSettingsModel::IsFavoriteRole).toBool());
    EXPECT_EQ(value(1 - alpha, ItemSettingsModel::LaunchCommandRole).toString(), "make run");
    EXPECT_EQ(model.roleNames().value(ItemSettingsModel::IconSourceRole), "iconSource");
}

TEST_F(ItemSettingsModelTest, EachKeystrokeOfANameIsOneSaveAndTheTileFollowsWithoutNewRows) {
    pinAll({"alpha", "beta"});
    const NotchItem item = itemAt(0);
    const std::size_t before = saves();

    typeInto(&ItemSettingsModel::setName, 0, "Site");
    EXPECT_EQ(saves() - before, 4u);
    EXPECT_EQ(stored(item).name, "Site");
    EXPECT_EQ(value(0, ItemSettingsModel::NameRole).toString(), "Site");
    EXPECT_EQ(tileValue(item, FavoritesModel::NameRole).toString(), "Site");
    EXPECT_EQ(resets, 0) << "the text field being typed in would lose its cursor";
    EXPECT_FALSE(changedRows.empty());
    EXPECT_TRUE(std::ranges::all_of(changedRows, [](int row) { return row == 0; }))
        << "rows that did not change were told they did";

    // Stored exactly as typed, also when empty; the initials and tint stay.
    model.setName(0, "");
    model.setInitials(0, "Q");
    EXPECT_EQ(stored(item).name, "");
    EXPECT_EQ(stored(item).initials, "Q");
    EXPECT_EQ(stored(item).tintHex, item.tintHex);
}

TEST_F(ItemSettingsModelTest, PinnedOffAndOnChangesOnlyIsFavorite) {
    pinAll({"alpha"});
    const NotchItem& item = pinned[0];
    NotchItem expected = stored(item);

    model.setIsFavorite(0, false);
    expected.isFavorite = false;
    EXPECT_EQ(stored(item), expected);
    EXPECT_EQ(tiles.count(), 0);
    EXPECT_FALSE(value(0, ItemSettingsModel::IsFavoriteRole).toBool());

    model.setIsFavorite(0, true);
    expected.isFavorite = true;
    EXPECT_EQ(stored(item), expected);
    EXPECT_EQ(tiles.count(), 1);
    EXPECT_EQ(resets, 0);
}

TEST_F(ItemSettingsModelTest, ClearingTheStartCommandRemovesItsEntryFromTheTileMenuAtOnce) {
    const NotchItem item = pin("server");
    typeInto(&ItemSettingsModel::setLaunchCommand, 0, "npm");
    EXPECT_EQ(stored(item).launchCommand, "npm");
    EXPECT_EQ(std::ranges::count(menuFor(item), "Run start command"), 1);

    model.setLaunchCommand(0, "");
    EXPECT_EQ(std::ranges::count(menuFor(item), "Run start command"), 0);
    EXPECT_FALSE(tiles.data(tiles.index(0), FavoritesModel::HasStartCommandRole).toBool());
}

TEST_F(ItemSettingsModelTest, AChosenIconIsCopiedIntoTheCacheAndTheRowAndTileShowTheCopy) {
    const NotchItem item = pin("alpha");
    images.choice = root.write("elsewhere/logo.png", "png bytes");

    model.chooseIcon(0);
    const NotchItem saved = stored(item);
    ASSERT_TRUE(saved.iconPath.has_value());
    EXPECT_EQ(*saved.iconPath, iconCache.directory() + "/" + item.id.text() + ".png");
    EXPECT_EQ(files.readFile(*saved.iconPath), "png bytes");
    const QUrl rowIcon = value(0, ItemSettingsModel::IconSourceRole).toUrl();
    EXPECT_EQ(rowIcon.toLocalFile().toStdString(), *saved.iconPath);
    EXPECT_EQ(tiles.data(tiles.index(0), FavoritesModel::ImageSourceRole).toUrl(), rowIcon);

    // Cancelled: nothing changes.
    images.choice.reset();
    const std::size_t before = saves();
    model.chooseIcon(0);
    EXPECT_EQ(saves(), before);
    EXPECT_EQ(images.shownCount, 2);
}

TEST_F(ItemSettingsModelTest, DetailsOpenPerRowAndStayOpenWhileOtherItemsComeAndGo) {
    pinAll({"alpha", "beta"});
    const std::string kept = value(1, ItemSettingsModel::ItemIdRole).toString().toStdString();

    model.toggleDetails(1);
    EXPECT_TRUE(value(1, ItemSettingsModel::ShowsDetailsRole).toBool());
    EXPECT_FALSE(value(0, ItemSettingsModel::ShowsDetailsRole).toBool());
    EXPECT_EQ(changedRows, (std::vector<int>{1}));

    // The row removes its own item: the rows are made anew, the other keeps its details.
    model.remove(0);
    EXPECT_EQ(resets, 1);
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(value(0, ItemSettingsModel::ItemIdRole).toString().toStdString(), kept);
    EXPECT_TRUE(value(0, ItemSettingsModel::ShowsDetailsRole).toBool());
    EXPECT_EQ(database.load().size(), 1u);

    // Out of range: ignored.
    model.setName(5, "nothing");
    model.toggleDetails(-1);
    EXPECT_EQ(model.rowCount(), 1);
}

TEST_F(ItemSettingsModelTest, AChosenFolderReplacesOnlyThePath) {
    const NotchItem item = pin("alpha");
    folders.choice = root.makeFolder("moved");

    model.chooseFolder(0);
    EXPECT_EQ(stored(item).path, *folders.choice);
    EXPECT_EQ(stored(item).name, "alpha");
    EXPECT_EQ(value(0, ItemSettingsModel::PathRole).toString().toStdString(), *folders.choice);
}

} // namespace
} // namespace tidewell
