#include "gui/shelf/FavoritesModel.h"

#include "gui/ShelfFixture.h"

#include <QUrl>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using FavoritesModelTest = testing::ShelfFixture;

// Pinning, unpinning and a new order move single rows, so the other tiles (and the one being
// dragged) keep their delegates. Only images in the icon cache are loaded.
TEST_F(FavoritesModelTest, FollowsThePinnedItemsOfTheStoreRowByRow) {
    FavoritesModel model{store, iconCache, QString::fromStdString(root.makeFolder("application"))};
    std::vector<std::string> changes;
    const auto note = [&](std::string change) {
        return [&, change] { changes.push_back(change); };
    };
    QObject::connect(&model, &FavoritesModel::countChanged, note("count"));
    QObject::connect(&model, &FavoritesModel::rowsInserted, note("+"));
    QObject::connect(&model, &FavoritesModel::rowsRemoved, note("-"));
    QObject::connect(&model, &FavoritesModel::modelReset, note("reset"));
    QObject::connect(&model, &FavoritesModel::rowsMoved,
                     [&](const QModelIndex&, int from, int, const QModelIndex&, int to) {
                         changes.push_back(std::to_string(from) + ">" + std::to_string(to));
                     });
    const auto value = [&](int row, FavoritesModel::Role role) {
        return model.data(model.index(row), role);
    };
    const auto ids = [&] {
        std::vector<std::string> shown;
        for (int row = 0; row < model.rowCount(); ++row)
            shown.push_back(value(row, FavoritesModel::ItemIdRole).toString().toStdString());
        return shown;
    };
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
    EXPECT_EQ(ids(), (std::vector{first.id.text(), second.id.text()}));
    EXPECT_FALSE(value(0, FavoritesModel::HasStartCommandRole).toBool());
    EXPECT_TRUE(value(1, FavoritesModel::HasStartCommandRole).toBool());
    EXPECT_EQ(value(0, FavoritesModel::ImageSourceRole).toUrl().toLocalFile().toStdString(),
              *first.iconPath);
    EXPECT_TRUE(value(1, FavoritesModel::ImageSourceRole).toUrl().isEmpty());
    const NotchItem third = pin("gamma");
    store.unpin(first.id);
    queue.runUntilIdle();
    store.reorderFavorite(third.id, second.id);
    EXPECT_EQ(ids(), (std::vector{third.id.text(), second.id.text()}));
    EXPECT_EQ(changes,
              (std::vector<std::string>{"+", "+", "count", "+", "count", "-", "count", "1>0"}));
}

} // namespace
} // namespace tidewell
