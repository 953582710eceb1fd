#include "core/platform/PathText.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

TEST(PathText, StandardizesLexicallyAndKnowsTheFormsThatNeedNoWork) {
    for (const auto& [path, standardized] : std::vector<std::pair<std::string, std::string>>{
             {"/", "/"},
             {"/a/b", "/a/b"},
             {"/a//b/", "/a/b"},
             {"/a/./b/../c", "/a/c"},
             {"/..", "/"},
             {"/a/b/..", "/a"},
         }) {
        EXPECT_EQ(PathText::standardized(path), standardized) << path;
        EXPECT_EQ(PathText::isStandardized(path), path == standardized) << path;
    }
}

} // namespace
} // namespace tidewell
