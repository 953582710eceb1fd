#include "gui/settings/QtImageChooser.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

// The dialog offers images and nothing else. (The test desktop hides the system's MIME
// database: this is the list of the images Qt reads.)
TEST(QtImageChooserTest, OffersImageFilesOnly) {
    const QStringList patterns = QtImageChooser::imagePatterns();
    for (const char* image : {"*.png", "*.jpg", "*.jpeg", "*.gif", "*.svg", "*.ico"})
        EXPECT_TRUE(patterns.contains(image)) << image;
    for (const char* other : {"*.txt", "*.pdf", "*.json", "*.html"})
        EXPECT_FALSE(patterns.contains(other)) << other;
    EXPECT_EQ(patterns.count("*.png"), 1) << "listed twice";
}

} // namespace
} // namespace tidewell
