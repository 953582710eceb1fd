#include "gui/settings/ColorPicker.h"

#include <QColorDialog>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

// Picked colours are announced as upper-case hex; a text changed elsewhere waits until the
// dialog is closed, and Cancel announces the colour the dialog opened at once more.
TEST(ColorPickerTest, ShowsTheTintTextAndAnnouncesPickedColoursUntilCancelled) {
    ColorPicker picker;
    QStringList picked;
    int colorChanges = 0;
    QObject::connect(&picker, &ColorPicker::picked, [&](const QString& hex) { picked << hex; });
    QObject::connect(&picker, &ColorPicker::colorChanged, [&] { ++colorChanges; });
    picker.setHex("not a colour");
    EXPECT_EQ(picker.color(), QColor(Qt::black)) << "unreadable text shows black";
    picker.setHex("#3a7bd5");

    picker.open();
    ASSERT_NE(picker.dialog(), nullptr);
    EXPECT_EQ(picker.dialog()->currentColor(), QColor(0x3A, 0x7B, 0xD5));
    picker.dialog()->setCurrentColor(QColor(0x0a, 0xbc, 0xde));
    EXPECT_EQ(picked, QStringList{"#0ABCDE"});
    picker.setHex("#FFFFFF");
    EXPECT_EQ(picker.color(), QColor(0x0A, 0xBC, 0xDE));

    colorChanges = 0;
    picker.dialog()->reject();
    EXPECT_FALSE(picker.isOpen());
    EXPECT_EQ(picked, (QStringList{"#0ABCDE", "#3a7bd5"}));
    EXPECT_EQ(picker.color(), QColor(Qt::white));
    EXPECT_GE(colorChanges, 1);
    picker.open();
    EXPECT_EQ(picker.dialog()->currentColor(), QColor(Qt::white)) << "opened at the text's colour";
    picker.dialog()->reject();
    EXPECT_EQ(picked.size(), 2) << "nothing was picked to take back";
}

} // namespace
} // namespace tidewell
