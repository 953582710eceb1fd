#include "e2e/EndToEndTest.h"

#include <sstream>

namespace tidewell::testing {
namespace {

namespace fs = std::filesystem;

using InstallTest = EndToEndTest;

// The Debian package of the build, unpacked into a scratch root: what lands there, that the
// installed tool knows it is installed and works, and that the program starts without any
// toolkit (those libraries belong to the user interface library, loaded only by an application
// start), then finds and loads its user interface (which then finds no display).
TEST_F(InstallTest, TheDebianPackageHoldsTheProgramItsLinkAndDesktopEntryAndRuns) {
    const std::string packages = root.makeFolder("packages");
    const ProcessResult packed =
        ChildProcess::run({.arguments = {TIDEWELL_CPACK, "--config",
                                         buildFolder() + "/CPackConfig.cmake", "-B", packages},
                           .environment = environment()},
                          std::chrono::seconds(150));
    ASSERT_EQ(packed.status, 0) << packed.standardOutput << packed.standardError;
    const auto names = entries(packages);
    const auto package =
        std::ranges::find_if(names, [](const std::string& name) { return name.ends_with(".deb"); });
    ASSERT_NE(package, names.end()) << packed.standardOutput;
    const std::string scratch = root.makeFolder("scratch");
    expectResult(ChildProcess::run({.arguments = {"dpkg", "-x", packages + "/" + *package, scratch},
                                    .environment = environment()}),
                 "", "", 0);

    const std::string prefix = scratch + "/usr";
    const std::string bin = prefix + "/bin";
    const std::string libraries = prefix + "/" TIDEWELL_INSTALL_LIBDIR "/tidewell";
    EXPECT_EQ(fs::read_symlink(bin + "/tide"), "tidewell");
    for (const std::string& file :
         {libraries + "/plugins/wayland-shell-integration/libtidewell-layer-shell.so",
          prefix + "/share/applications/com.quorvel.tidewell.desktop",
          prefix + "/share/icons/hicolor/scalable/apps/com.quorvel.tidewell.svg"})
        EXPECT_TRUE(fs::is_regular_file(file)) << file;
    expectResult(ChildProcess::run(launch(bin + "/tide", {"login-status"}, home)),
                 "not registered\n", "", 0);

    const ProcessResult ldd = ChildProcess::run(launch("ldd", {bin + "/tidewell"}, home));
    ASSERT_NE(ldd.standardOutput.find("libc.so"), std::string::npos) << ldd.standardOutput;
    std::istringstream lines(ldd.standardOutput);
    for (std::string line; std::getline(lines, line);)
        for (const char* toolkit : {"libQt", "libglib", "libgio", "libgobject", "libX", "libxcb"})
            EXPECT_FALSE(line.substr(line.find_first_not_of(" \t")).starts_with(toolkit)) << line;
    const std::string folder = project("site");
    expectResult(ChildProcess::run(launch(bin + "/tide", {"add", folder}, home)), "Pinned: site\n",
                 "", 0);
    const ProcessResult started = ChildProcess::run(launch(bin + "/tidewell", {}, home));
    EXPECT_NE(started.standardError.find("tidewell: no window system: "), std::string::npos)
        << started.standardError;
}

} // namespace
} // namespace tidewell::testing
