#include "core/platform/PathText.h"

#include "core/platform/FileUrl.h"

#include <gtest/gtest.h>

namespace tidewell {

TEST(PathText, StandardizesLexicallyAndKnowsTheFormsThatNeedNoWork) {
    for (const auto& [path, standardized] : std::vector<std::pair<std::string, std::string>>{
             {"/", "/"},
             {"/a/b", "/a/b"},
             {"/a//b/", "/a/b"},
             {"/a/./b/../c", "/a/c"},
             {"/..", "/"},
             {"/a/b/..", "/a"},
             {"a/./b/..", "a"},
         }) {
        EXPECT_EQ(PathText::standardized(path), standardized) << path;
        EXPECT_EQ(PathText::isStandardized(path), path == standardized) << path;
    }
}

TEST(FileUrl, AnEscapeNeedsTwoHexDigitsAndASchemeStartsWithALetter) {
    const std::pair<std::string, std::string> cases[] = {
        {"file:///a%20b", "/a b"}, {"file:///a%G0", "no url"}, {"file:///a%0G", "no url"},
        {"f_le:///a", "no url"},   {"1file:///a", "no url"},   {"http://host/a", "no path"},
        {"A://h/a", "no path"},    {"file:///%4F%4f", "/OO"},  {"z9+.-://h", "no path"},
    };
    for (const auto& [text, described] : cases) {
        const auto url = FileUrl::parse(text);
        EXPECT_EQ(url ? url->localPath.value_or("no path") : "no url", described) << text;
    }
}

} // namespace tidewell
