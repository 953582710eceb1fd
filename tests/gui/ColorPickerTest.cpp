#include "gui/settings/ColorPicker.h"

#include <QColorDialog>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

QStringList pickedHexes(const QSignalSpy& spy) {
    QStringList hexes;
    for (const QList<QVariant>& arguments : spy)
        hexes << arguments.at(0).toString();
    return hexes;
}

// Picked colours are announced as upper-case hex; a text changed elsewhere waits until the
// dialog is closed, and Cancel announces the colour the dialog opened at once more.
TEST(ColorPickerTest, ShowsTheTintTextAndAnnouncesPickedColoursUntilCancelled) {
    ColorPicker picker;
    QSignalSpy picked(&picker, &ColorPicker::picked);
    picker.setHex("not a colour");
    EXPECT_EQ(picker.color(), QColor(Qt::black)) << "unreadable text shows black";
    picker.setHex("#3a7bd5");

    picker.open();
    ASSERT_NE(picker.dialog(), nullptr);
    EXPECT_EQ(picker.dialog()->currentColor(), QColor(0x3A, 0x7B, 0xD5));
    picker.dialog()->setCurrentColor(QColor(0x0a, 0xbc, 0xde));
    EXPECT_EQ(pickedHexes(picked), QStringList{"#0ABCDE"});
    picker.setHex("#FFFFFF");
    EXPECT_EQ(picker.color(), QColor(0x0A, 0xBC, 0xDE));

    QSignalSpy colorChanges(&picker, &ColorPicker::colorChanged);
    picker.dialog()->reject();
    EXPECT_FALSE(picker.isOpen());
    EXPECT_EQ(pickedHexes(picked), (QStringList{"#0ABCDE", "#3a7bd5"}));
    EXPECT_EQ(picker.color(), QColor(Qt::white));
    EXPECT_GE(colorChanges.count(), 1);
    picker.open();
    EXPECT_EQ(picker.dialog()->currentColor(), QColor(Qt::white)) << "opened at the text's colour";
    picker.dialog()->reject();
    EXPECT_EQ(picked.count(), 2) << "nothing was picked to take back";
}

} // namespace
} // namespace tidewell
