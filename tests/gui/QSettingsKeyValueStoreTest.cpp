#include "gui/platform/QSettingsKeyValueStore.h"

#include "gui/TestDesktop.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

// Reading the file the user or another program wrote is walked end to end.
TEST(QSettingsKeyValueStore, EachWriteReachesTheUserConfigurationFileAndAbsentKeysHaveNoValue) {
    QSettingsKeyValueStore writer;
    writer.setString("note", "two words, an = sign");
    writer.setBoolean("hideFromScreenCapture", true);
    writer.setBoolean("didMigrateLoginItem", false);
    const std::string text =
        testing::readFile(testing::TestDesktop::configHome() + "/Tidewell/Tidewell.conf")
            .value_or("");
    for (const char* line : {"hideFromScreenCapture=true\n", "didMigrateLoginItem=false\n"})
        EXPECT_NE(text.find(line), std::string::npos) << text;
    const QSettingsKeyValueStore reader;
    EXPECT_EQ(reader.string("note"), "two words, an = sign");
    EXPECT_EQ(reader.boolean("didMigrateLoginItem"), false);
    EXPECT_EQ(reader.string("tidewellAbsentKey"), std::nullopt);
    EXPECT_EQ(reader.boolean("tidewellAbsentKey"), std::nullopt);
}

} // namespace
} // namespace tidewell
