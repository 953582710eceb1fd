#include "gui/settings/ItemSettingsModel.h"

#include "gui/ShelfFixture.h"

#include <QUrl>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

class ItemSettingsModelTest : public testing::ShelfFixture {
protected:
    ItemSettingsModelTest() {
        QObject::connect(&model, &ItemSettingsModel::modelReset, [this] { ++resets; });
        QObject::connect(&model, &ItemSettingsModel::dataChanged,
                         [this](const QModelIndex& from) { changedRows.push_back(from.row()); });
    }
    QVariant value(int row, ItemSettingsModel::Role role) const {
        return model.data(model.index(row), role);
    }
    void forgetSignals() {
        resets = 0;
        changedRows.clear();
    }
    NotchItem stored(int row) {
        const std::string id = value(row, ItemSettingsModel::ItemIdRole).toString().toStdString();
        for (const NotchItem& candidate : database.load())
            if (candidate.id.text() == id)
                return candidate;
        return {};
    }

    ItemSettingsModel model{{store, iconCache, folders, images, QString()}};
    int resets = 0;
    std::vector<int> changedRows;
};

// Each edit is saved into its own field and changes its row in place: a reset would take the
// cursor from the text field being typed in.
TEST_F(ItemSettingsModelTest, RowsShowEveryItemAndEditsChangeOnlyTheirRowInPlace) {
    pin("alpha");
    database.upsert({.path = root.makeFolder("recent"), .command = "make run"});
    queue.runUntilIdle();
    ASSERT_EQ(model.rowCount(), 2);
    for (int row = 0; row < 2; ++row)
        EXPECT_EQ(value(row, ItemSettingsModel::ItemIdRole).toString().toStdString(),
                  store.items().at(static_cast<std::size_t>(row)).id.text());
    const int alpha = stored(0).isFavorite ? 0 : 1;
    const NotchItem item = stored(alpha);
    EXPECT_EQ(value(1 - alpha, ItemSettingsModel::LaunchCommandRole).toString(), "make run");
    forgetSignals();

    model.setName(alpha, "Site");
    model.setInitials(alpha, "Q");
    model.setTintHex(alpha, "#112233");
    model.setLaunchCommand(alpha, "npm");
    model.setIsFavorite(alpha, false);
    images.choice = root.write("elsewhere/logo.png", "png bytes");
    model.chooseIcon(alpha);
    folders.choice = root.makeFolder("moved");
    model.chooseFolder(alpha);
    model.setName(5, "out of range: ignored");
    NotchItem expected = item;
    expected.name = "Site";
    expected.initials = "Q";
    expected.tintHex = "#112233";
    expected.launchCommand = "npm";
    expected.isFavorite = false;
    expected.iconPath = iconCache.directory() + "/" + item.id.text() + ".png";
    expected.path = *folders.choice;
    EXPECT_EQ(stored(alpha), expected);
    EXPECT_EQ(files.readFile(*expected.iconPath), "png bytes");
    EXPECT_EQ(value(alpha, ItemSettingsModel::TintHexRole).toString(), "#112233");
    EXPECT_EQ(value(alpha, ItemSettingsModel::IconSourceRole).toUrl().toLocalFile().toStdString(),
              *expected.iconPath);
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(changedRows, std::vector<int>(7, alpha));
}

// The row removes its own item: the rows are made anew, the other keeps its open details.
TEST_F(ItemSettingsModelTest, DetailsOpenPerRowAndStayOpenWhileOtherItemsComeAndGo) {
    pin("alpha");
    pin("beta");
    const QVariant kept = value(1, ItemSettingsModel::ItemIdRole);
    forgetSignals();
    model.toggleDetails(1);
    model.toggleDetails(-1);
    EXPECT_TRUE(value(1, ItemSettingsModel::ShowsDetailsRole).toBool());
    EXPECT_FALSE(value(0, ItemSettingsModel::ShowsDetailsRole).toBool());
    EXPECT_EQ(changedRows, (std::vector<int>{1}));

    model.remove(0);
    EXPECT_EQ(resets, 1);
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(value(0, ItemSettingsModel::ItemIdRole), kept);
    EXPECT_TRUE(value(0, ItemSettingsModel::ShowsDetailsRole).toBool());
    EXPECT_EQ(database.load().size(), 1u);
}

} // namespace
} // namespace tidewell
