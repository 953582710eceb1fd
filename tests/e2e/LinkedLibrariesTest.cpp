#include "e2e/EndToEndTest.h"

#include <sstream>

namespace tidewell::testing {
namespace {

using LinkedLibrariesTest = EndToEndTest;

// The command line must start without any toolkit: those libraries belong to the user
// interface library, loaded only by an application start.
TEST_F(LinkedLibrariesTest, TheProgramLinksNoToolkitLibrary) {
    const ProcessResult ldd = ChildProcess::run(launch("ldd", {tidewellPath()}, home));
    ASSERT_EQ(ldd.status, 0) << ldd.standardError;
    EXPECT_NE(ldd.standardOutput.find("libc.so"), std::string::npos) << ldd.standardOutput;
    std::istringstream lines(ldd.standardOutput);
    for (std::string line; std::getline(lines, line);) {
        const std::string library =
            line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
        for (const char* toolkit : {"libQt", "libglib", "libgio", "libgobject", "libX", "libxcb"})
            EXPECT_FALSE(library.starts_with(toolkit)) << line;
    }
}

} // namespace
} // namespace tidewell::testing
