#include "gui/shelf/FavoritesModel.h"

#include "gui/ShelfFixture.h"

#include <QUrl>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

class FavoritesModelTest : public testing::ShelfFixture {
protected:
    QVariant value(int row, FavoritesModel::Role role) const {
        return model.data(model.index(row), role);
    }
    std::string idAt(int row) const {
        return value(row, FavoritesModel::ItemIdRole).toString().toStdString();
    }

    FavoritesModel model{store, iconCache, QString::fromStdString(root.makeFolder("application"))};
};

// Pinning, unpinning and a new order move single rows, so the other tiles (and the one being
// dragged) keep their delegates. Only images in the icon cache are loaded.
TEST_F(FavoritesModelTest, FollowsThePinnedItemsOfTheStoreRowByRow) {
    int countChanges = 0;
    QObject::connect(&model, &FavoritesModel::countChanged, [&] { ++countChanges; });
    std::vector<std::string> rowChanges;
    QObject::connect(&model, &FavoritesModel::rowsInserted, [&](const QModelIndex&, int row) {
        rowChanges.push_back("+" + std::to_string(row));
    });
    QObject::connect(&model, &FavoritesModel::rowsRemoved, [&](const QModelIndex&, int row) {
        rowChanges.push_back("-" + std::to_string(row));
    });
    QObject::connect(&model, &FavoritesModel::rowsMoved,
                     [&](const QModelIndex&, int from, int, const QModelIndex&, int to) {
                         rowChanges.push_back(std::to_string(from) + ">" + std::to_string(to));
                     });
    QObject::connect(&model, &FavoritesModel::modelReset, [&] { rowChanges.push_back("reset"); });

    const std::string picture = root.write("pictures/logo.png", "png bytes");
    const NotchItem first = database.upsert(
        {.path = root.makeFolder("alpha project"), .favorite = true, .icon = picture});
    const NotchItem second = database.upsert(
        {.path = root.makeFolder("beta"), .favorite = true, .command = "npm start"});
    database.upsert({.path = root.makeFolder("recent only")});
    database.modify([&](std::vector<NotchItem>& items) {
        for (NotchItem& item : items)
            if (item.id == second.id)
                item.iconPath = picture; // outside the cache
        return true;
    });
    queue.runUntilIdle();
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.count(), 2);
    EXPECT_EQ(countChanges, 1);
    EXPECT_EQ(idAt(0), first.id.text());
    EXPECT_FALSE(value(0, FavoritesModel::HasStartCommandRole).toBool());
    EXPECT_TRUE(value(1, FavoritesModel::HasStartCommandRole).toBool());
    EXPECT_EQ(value(0, FavoritesModel::ImageSourceRole).toUrl().toLocalFile().toStdString(),
              *first.iconPath);
    EXPECT_TRUE(value(1, FavoritesModel::ImageSourceRole).toUrl().isEmpty());

    const NotchItem third = pin("gamma");
    store.unpin(first.id);
    queue.runUntilIdle();
    store.reorderFavorite(third.id, second.id);
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(idAt(0), third.id.text());
    EXPECT_EQ(idAt(1), second.id.text());
    EXPECT_EQ(countChanges, 3);
    EXPECT_EQ(rowChanges, (std::vector<std::string>{"+0", "+1", "+2", "-0", "1>0"}));
}

} // namespace
} // namespace tidewell
