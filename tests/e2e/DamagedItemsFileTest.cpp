#include "e2e/EndToEndTest.h"
#include "e2e/ItemsFileText.h"

#include <algorithm>
#include <ctime>
#include <regex>

namespace tidewell::testing {
namespace {

const std::regex preservedName(R"(items\.json\.corrupt-\d{8}T\d{6}Z(-\d+)?)");

// The name a copy kept at that time gets: items.json.corrupt-20250304T180741Z.
std::string preservedNameAt(std::time_t time) {
    std::tm parts{};
    ::gmtime_r(&time, &parts);
    char text[64];
    std::strftime(text, sizeof text, "items.json.corrupt-%Y%m%dT%H%M%SZ", &parts);
    return text;
}

class DamagedItemsFileTest : public EndToEndTest {
protected:
    // The contents of the preserved copies, sorted.
    std::vector<std::string> preservedCopies() const {
        std::vector<std::string> copies;
        for (const std::string& name : entries(dataFolder()))
            if (name.starts_with("items.json.corrupt-")) {
                EXPECT_TRUE(std::regex_match(name, preservedName)) << name;
                copies.push_back(readFile(dataFolder() + "/" + name).value_or("(unreadable)"));
            }
        std::sort(copies.begin(), copies.end());
        return copies;
    }
};

TEST_F(DamagedItemsFileTest, UndecodableFilesListAsEmptyAndAreKeptWhenTheNextSaveReplacesThem) {
    std::vector<std::string> damaged = {
        "[{\"id\": \"not closed",  "{\"a\":1}",           "[1,2]", "",
        std::string(4096, '\xFF'), std::string("[\0]", 3)};
    for (std::size_t index = 0; index < damaged.size(); ++index) {
        SCOPED_TRACE("damaged file " + std::to_string(index));
        const std::string folder = project("p" + std::to_string(index));
        writeItemsFile(damaged[index]);

        const ProcessResult listed = tide({"list"}, folder);
        EXPECT_EQ(listed.standardOutput, "");
        EXPECT_EQ(listed.standardError, "");
        EXPECT_EQ(listed.status, 0);
        EXPECT_EQ(itemsFileBytes(), damaged[index]);

        const ProcessResult added = tide({"add", "."}, folder);
        EXPECT_EQ(added.standardOutput, "Pinned: p" + std::to_string(index) + "\n");
        EXPECT_EQ(added.standardError, "");
        EXPECT_EQ(added.status, 0);
        EXPECT_EQ(stringValues(itemsFileBytes(), "id").size(), 1u);
    }
    // Several copies are usually made within one second; each keeps a name of its own.
    std::sort(damaged.begin(), damaged.end());
    EXPECT_EQ(preservedCopies(), damaged);
}

TEST_F(DamagedItemsFileTest, AKeptCopyNeverReplacesAnEarlierOne) {
    const std::time_t now = std::time(nullptr);
    std::vector<std::string> expected = {"{\"damaged\": true}"};
    for (std::time_t second = now - 1; second <= now + 3; ++second) {
        const std::string earlier = "earlier copy " + std::to_string(second);
        root.write("data/Tidewell/" + preservedNameAt(second), earlier);
        expected.push_back(earlier);
    }
    writeItemsFile("{\"damaged\": true}");

    EXPECT_EQ(tide({"add", "."}, project("web")).status, 0);
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(preservedCopies(), expected);
}

} // namespace
} // namespace tidewell::testing
