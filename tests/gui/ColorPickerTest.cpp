#include "gui/settings/ColorPicker.h"

#include "gui/SettingsFixture.h"
#include "gui/settings/ItemSettingsModel.h"

#include <QColorDialog>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

class ColorPickerTest : public testing::SettingsFixture {
protected:
    ColorPicker picker;
};

TEST_F(ColorPickerTest, ShowsTheTintTextAndAnnouncesPickedColoursAsUpperCaseHex) {
    QSignalSpy picked(&picker, &ColorPicker::picked);
    picker.setHex("#3a7bd5");
    EXPECT_EQ(picker.color(), QColor(0x3A, 0x7B, 0xD5));
    picker.setHex("not a colour");
    EXPECT_EQ(picker.color(), QColor(Qt::black)) << "unreadable text shows black";
    picker.setHex("#3A7BD5");

    picker.open();
    ASSERT_NE(picker.dialog(), nullptr);
    EXPECT_TRUE(picker.isOpen());
    EXPECT_EQ(picker.dialog()->currentColor(), QColor(0x3A, 0x7B, 0xD5));
    EXPECT_EQ(picked.count(), 0) << "opening is no pick";

    picker.dialog()->setCurrentColor(QColor(0x0a, 0xbc, 0xde));
    ASSERT_EQ(picked.count(), 1);
    EXPECT_EQ(picked.at(0).at(0).toString(), "#0ABCDE");
    EXPECT_EQ(picker.color(), QColor(0x0A, 0xBC, 0xDE));
}

TEST_F(ColorPickerTest, TextChangedElsewhereWaitsUntilTheDialogIsClosed) {
    picker.setHex("#112233");
    picker.open();
    picker.dialog()->setCurrentColor(QColor(0x44, 0x55, 0x66));

    picker.setHex("#FFFFFF");
    EXPECT_EQ(picker.dialog()->currentColor(), QColor(0x44, 0x55, 0x66));
    EXPECT_EQ(picker.color(), QColor(0x44, 0x55, 0x66));

    QSignalSpy colorChanges(&picker, &ColorPicker::colorChanged);
    picker.dialog()->reject();
    EXPECT_FALSE(picker.isOpen());
    EXPECT_EQ(picker.color(), QColor(Qt::white));
    EXPECT_GE(colorChanges.count(), 1);

    // Opened again, at the text's colour.
    picker.open();
    EXPECT_EQ(picker.dialog()->currentColor(), QColor(Qt::white));
}

TEST_F(ColorPickerTest, APickedColourIsWrittenThroughAsTheItemsTintUntilCancelled) {
    const NotchItem item = pin("alpha");
    ItemSettingsModel model{{store, iconCache, folders, images, QString()}};
    QObject::connect(&picker, &ColorPicker::picked,
                     [&](const QString& hex) { model.setTintHex(0, hex); });
    picker.setHex(model.data(model.index(0), ItemSettingsModel::TintHexRole).toString());
    picker.open();

    picker.dialog()->setCurrentColor(QColor(0xfe, 0x01, 0x80));
    EXPECT_EQ(database.load().at(0).tintHex, "#FE0180");
    EXPECT_EQ(model.data(model.index(0), ItemSettingsModel::TintHexRole).toString(), "#FE0180");
    EXPECT_EQ(database.load().at(0).initials, item.initials);

    picker.dialog()->reject();
    EXPECT_EQ(database.load().at(0).tintHex, item.tintHex) << "Cancel kept the colour picked";
}

} // namespace
} // namespace tidewell
