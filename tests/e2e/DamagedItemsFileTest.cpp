#include "e2e/EndToEndTest.h"

#include <algorithm>
#include <ctime>
#include <regex>

namespace tidewell::testing {
namespace {

class DamagedItemsFileTest : public EndToEndTest {
protected:
    // The contents of the kept copies, sorted; every name says when it was made.
    std::vector<std::string> keptCopies() const {
        const std::regex keptName(R"(items\.json\.corrupt-\d{8}T\d{6}Z(-\d+)?)");
        std::vector<std::string> copies;
        for (const std::string& name : entries(dataFolder()))
            if (name.starts_with("items.json.corrupt-")) {
                EXPECT_TRUE(std::regex_match(name, keptName)) << name;
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

        expectResult(tide({"list"}, folder), "", "", 0);
        EXPECT_EQ(itemsFileBytes(), damaged[index]);
        expectResult(tide({"add", "."}, folder), "Pinned: p" + std::to_string(index) + "\n", "", 0);
        EXPECT_EQ(storedItems().size(), 1u);
    }
    // Several copies are usually made within one second; each keeps a name of its own.
    std::sort(damaged.begin(), damaged.end());
    EXPECT_EQ(keptCopies(), damaged);
}

TEST_F(DamagedItemsFileTest, AKeptCopyNeverReplacesAnEarlierOne) {
    const std::time_t now = std::time(nullptr);
    std::vector<std::string> expected = {"{\"damaged\": true}"};
    for (std::time_t second = now - 1; second <= now + 3; ++second) {
        std::tm parts{};
        ::gmtime_r(&second, &parts);
        char name[64];
        std::strftime(name, sizeof name, "items.json.corrupt-%Y%m%dT%H%M%SZ", &parts);
        expected.push_back("earlier copy " + std::to_string(second));
        root.write("data/Tidewell/" + std::string(name), expected.back());
    }
    writeItemsFile(expected.front());

    EXPECT_EQ(tide({"add", "."}, project("web")).status, 0);
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(keptCopies(), expected);
}

} // namespace
} // namespace tidewell::testing
