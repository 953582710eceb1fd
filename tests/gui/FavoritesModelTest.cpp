#include "gui/shelf/FavoritesModel.h"

#include "core/icons/IconCache.h"
#include "core/store/ItemStore.h"
#include "support/FakeWorkspace.h"
#include "support/ItemsFixture.h"

#include <QColor>
#include <QUrl>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

class FavoritesModelTest : public testing::ItemsFixture {
protected:
    QVariant value(int row, FavoritesModel::Role role) const {
        return model.data(model.index(row), role);
    }
    // Saves through the database as the command-line tool does; the store hears of it.
    NotchItem pin(const std::string& folder, std::string command = "",
                  std::optional<std::string> icon = std::nullopt) {
        const NotchItem item = database.upsert({.path = root.makeFolder(folder),
                                                .favorite = true,
                                                .command = std::move(command),
                                                .icon = std::move(icon)});
        queue.runUntilIdle();
        return item;
    }

    testing::FakeWorkspace workspace;
    ItemStore store{{database, localCenter, distributedCenter, queue, workspace}};
    FavoritesModel model{store, IconCache(files, folder.iconsFolder()),
                         QString::fromStdString(root.makeFolder("application"))};
};

TEST_F(FavoritesModelTest, FollowsThePinnedItemsOfTheStore) {
    int countChanges = 0;
    QObject::connect(&model, &FavoritesModel::countChanged, [&] { ++countChanges; });
    // Pinning and unpinning move single rows, so the other tiles stay as they are.
    std::vector<std::string> rowChanges;
    QObject::connect(&model, &FavoritesModel::rowsInserted, [&](const QModelIndex&, int row) {
        rowChanges.push_back("+" + std::to_string(row));
    });
    QObject::connect(&model, &FavoritesModel::rowsRemoved, [&](const QModelIndex&, int row) {
        rowChanges.push_back("-" + std::to_string(row));
    });
    QObject::connect(&model, &FavoritesModel::modelReset, [&] { rowChanges.push_back("reset"); });
    EXPECT_EQ(model.rowCount(), 0);

    const NotchItem first = pin("alpha project");
    const NotchItem second = pin("beta", "npm start");
    database.upsert({.path = root.makeFolder("recent only")});
    queue.runUntilIdle();
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.count(), 2);
    EXPECT_EQ(countChanges, 2);

    EXPECT_EQ(value(0, FavoritesModel::ItemIdRole).toString().toStdString(), first.id.text());
    EXPECT_EQ(value(0, FavoritesModel::NameRole).toString(), "alpha project");
    EXPECT_EQ(value(0, FavoritesModel::PathRole).toString().toStdString(), first.path);
    EXPECT_EQ(value(0, FavoritesModel::InitialsRole).toString(), "AP");
    EXPECT_EQ(value(0, FavoritesModel::TintRole).value<QColor>(),
              QColor::fromString(QString::fromStdString(first.tintHex)));
    EXPECT_FALSE(value(0, FavoritesModel::HasStartCommandRole).toBool());
    EXPECT_TRUE(value(1, FavoritesModel::HasStartCommandRole).toBool());
    EXPECT_EQ(model.roleNames().value(FavoritesModel::ImageSourceRole), "imageSource");

    store.unpin(first.id);
    queue.runUntilIdle();
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(value(0, FavoritesModel::ItemIdRole).toString().toStdString(), second.id.text());
    EXPECT_EQ(countChanges, 3);
    EXPECT_EQ(rowChanges, (std::vector<std::string>{"+0", "+1", "-0"}));

    // A new order moves rows: the tile being dragged keeps its delegate.
    const NotchItem third = pin("gamma");
    rowChanges.clear();
    QObject::connect(&model, &FavoritesModel::rowsMoved,
                     [&](const QModelIndex&, int from, int, const QModelIndex&, int to) {
                         rowChanges.push_back(std::to_string(from) + ">" + std::to_string(to));
                     });
    store.reorderFavorite(third.id, second.id);
    EXPECT_EQ(rowChanges, (std::vector<std::string>{"1>0"}));
    EXPECT_EQ(value(0, FavoritesModel::ItemIdRole).toString().toStdString(), third.id.text());
    EXPECT_EQ(value(1, FavoritesModel::ItemIdRole).toString().toStdString(), second.id.text());
}

TEST_F(FavoritesModelTest, LoadsOnlyCachedImagesAndDrawsInitialsForOthers) {
    const std::string picture = root.write("pictures/logo.png", "png bytes");
    const NotchItem cached = pin("cached", "", picture);
    ASSERT_TRUE(cached.iconPath.has_value());
    ASSERT_TRUE(cached.iconPath->starts_with(folder.iconsFolder() + "/"));
    const NotchItem external = pin("external");
    database.modify([&](std::vector<NotchItem>& items) {
        for (NotchItem& item : items)
            if (item.id == external.id)
                item.iconPath = picture;
        return true;
    });
    queue.runUntilIdle();

    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(value(0, FavoritesModel::ImageSourceRole).toUrl().toLocalFile().toStdString(),
              *cached.iconPath);
    EXPECT_TRUE(value(1, FavoritesModel::ImageSourceRole).toUrl().isEmpty());
    EXPECT_EQ(value(1, FavoritesModel::InitialsRole).toString().toStdString(), external.initials);
}

} // namespace
} // namespace tidewell
