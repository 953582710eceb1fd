#include "gui/platform/QSettingsKeyValueStore.h"

#include "gui/TestDesktop.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace tidewell {
namespace {

TEST(QSettingsKeyValueStore, EachWriteReachesTheUserConfigurationFileAndAbsentKeysHaveNoValue) {
    QSettingsKeyValueStore writer;
    writer.setString("shelfAppearance", "warmGlass");
    writer.setString("note", "two words, an = sign");
    writer.setString("emptyText", "");
    writer.setBoolean("hideFromScreenCapture", true);
    writer.setBoolean("didMigrateLoginItem", false);

    std::ostringstream text;
    text << std::ifstream(testing::TestDesktop::configHome() + "/Tidewell/Tidewell.conf").rdbuf();
    for (const char* line : {"shelfAppearance=warmGlass\n", "hideFromScreenCapture=true\n",
                             "didMigrateLoginItem=false\n"})
        EXPECT_NE(text.str().find(line), std::string::npos) << text.str();

    const QSettingsKeyValueStore reader;
    EXPECT_EQ(reader.string("shelfAppearance"), "warmGlass");
    EXPECT_EQ(reader.string("note"), "two words, an = sign");
    EXPECT_EQ(reader.string("emptyText"), "");
    EXPECT_EQ(reader.boolean("hideFromScreenCapture"), true);
    EXPECT_EQ(reader.boolean("didMigrateLoginItem"), false);
    EXPECT_EQ(reader.string("tidewellAbsentKey"), std::nullopt);
    EXPECT_EQ(reader.boolean("tidewellAbsentKey"), std::nullopt);
    EXPECT_EQ(reader.string("ShelfAppearance"), std::nullopt) << "keys are case-sensitive";
}

} // namespace
} // namespace tidewell
