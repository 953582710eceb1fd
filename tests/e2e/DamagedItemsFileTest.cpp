#include "e2e/EndToEndTest.h"

#include <algorithm>
#include <regex>

namespace tidewell::testing {
namespace {

using DamagedItemsFileTest = EndToEndTest;

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
    // Several copies are usually made within one second; each keeps a name of its own that
    // says when it was made.
    const std::regex keptName(R"(items\.json\.corrupt-\d{8}T\d{6}Z(-\d+)?)");
    std::vector<std::string> kept;
    for (const std::string& name : entries(dataFolder()))
        if (name.starts_with("items.json.corrupt-")) {
            EXPECT_TRUE(std::regex_match(name, keptName)) << name;
            kept.push_back(readFile(dataFolder() + "/" + name).value_or("(unreadable)"));
        }
    std::sort(kept.begin(), kept.end());
    std::sort(damaged.begin(), damaged.end());
    EXPECT_EQ(kept, damaged);
}

} // namespace
} // namespace tidewell::testing
