#include "gui/platform/QSettingsKeyValueStore.h"

#include "gui/TestDesktop.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace tidewell {
namespace {

std::string fileText(const std::string& path) {
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

TEST(QSettingsKeyValueStore, EachWriteReachesTheUserConfigurationFile) {
    QSettingsKeyValueStore writer;
    writer.setString("shelfAppearance", "warmGlass");
    writer.setString("note", "two words, an = sign");
    writer.setString("emptyText", "");
    writer.setBoolean("hideFromScreenCapture", true);
    writer.setBoolean("didMigrateLoginItem", false);

    const std::string text =
        fileText(testing::TestDesktop::current().configHome() + "/Tidewell/Tidewell.conf");
    EXPECT_NE(text.find("shelfAppearance=warmGlass\n"), std::string::npos) << text;
    EXPECT_NE(text.find("hideFromScreenCapture=true\n"), std::string::npos) << text;
    EXPECT_NE(text.find("didMigrateLoginItem=false\n"), std::string::npos) << text;

    const QSettingsKeyValueStore reader;
    EXPECT_EQ(reader.string("shelfAppearance"), "warmGlass");
    EXPECT_EQ(reader.string("note"), "two words, an = sign");
    EXPECT_EQ(reader.string("emptyText"), "");
    EXPECT_EQ(reader.boolean("hideFromScreenCapture"), true);
    EXPECT_EQ(reader.boolean("didMigrateLoginItem"), false);
}

TEST(QSettingsKeyValueStore, AbsentKeysHaveNoValue) {
    QSettingsKeyValueStore store;
    store.setString("codexLaunchMode", "app");
    EXPECT_EQ(store.string("tidewellAbsentKey"), std::nullopt);
    EXPECT_EQ(store.boolean("tidewellAbsentKey"), std::nullopt);
    EXPECT_EQ(store.string("CodexLaunchMode"), std::nullopt) << "keys are case-sensitive";
}

} // namespace
} // namespace tidewell
