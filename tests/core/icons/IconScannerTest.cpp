#include "core/icons/IconScanner.h"

#include "linux/PosixFileSystem.h"
#include "support/FakeImageFormats.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tidewell {
namespace {

// Shapes are given as SVG text: images are read by their content, whatever their names.
std::string image(int width, int height) {
    return "<svg width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) +
           "\"/>";
}

const std::string square = image(64, 64);
const std::string wide = image(64, 32);

// The numbers are the scores of the files compared; square images earn a bonus.
TEST(IconScanner, ScoresNamePlaceAndShape) {
    using Files = std::vector<std::pair<std::string, std::string>>;
    const Files scored = {{"assets/favicon.ico", wide}, {"icon.icns", "no size to read"}};
    const std::string catalog = "Assets.xcassets/AppIcon.appiconset/icon_512x512.png";
    const std::string pruned[] = {"node_modules", "Pods",          "DerivedData", "BUILD",
                                  "dist",         "out",           "vendor",      "venv",
                                  "__pycache__",  "target",        "coverage",    ".git",
                                  "Tool.app",     "Kit.Framework", "static/Build"};
    Files hidden = {{".icon.png", square}};
    for (const std::string& folder : pruned)
        hidden.push_back({folder + "/icon.png", square});
    const struct {
        std::string what;
        Files files;
        std::optional<std::string> best;
        testing::FakeImageFormats::Extensions undecodable;
    } cases[] = {
        {"no icon-like name",
         {{"README.md", "# Project"},
          {"photo.png", square},
          {"logo.txt", "not an image"},
          {"docs/iconography.md", "text"}},
         std::nullopt},
        {"a keyword in the name", {{"a/my-logo.svg", "<svg/>"}}, "a/my-logo.svg"},
        {"equals: the first met",
         {{"a/my-logo.svg", "<svg/>"}, {"a/landmark.png", wide}},
         "a/landmark.png"},
        {"extension in any case",
         {{"a/my-logo.svg", "<svg/>"}, {"AppIcon.HEIC", ""}},
         "AppIcon.HEIC"},
        {"a format the application cannot draw: the next best",
         {{"a/my-logo.svg", "<svg/>"}, {"AppIcon.HEIC", ""}},
         "a/my-logo.svg",
         {"heic"}},
        {"square at the root 137, wide preferred 119",
         {{"images/mark.png", wide}, {"logo.png", square}},
         "logo.png"},
        {"square preferred 164, wide at the root 92",
         {{"images/mark.png", square}, {"logo.png", wide}},
         "images/mark.png"},
        {"icon family 140 met after a wide preferred favicon 139", scored, "icon.icns"},
        {"undrawable icon family 140, wide preferred favicon 139",
         scored,
         "assets/favicon.ico",
         {"icns"}},
        {"square favicon at the root 157",
         {scored[0], scored[1], {"favicon.ico", square}},
         "favicon.ico"},
        {"square in an asset catalog 156 against 157",
         {scored[0], scored[1], {"favicon.ico", square}, {catalog, square}},
         "favicon.ico"},
        {"square in an asset catalog 156 against 112",
         {scored[0], scored[1], {"favicon.ico", wide}, {catalog, square}},
         catalog},
        {"five levels deep", {{"a/b/c/d/icon.png", square}}, std::nullopt},
        {"four levels deep",
         {{"a/b/c/d/icon.png", square}, {"a/b/c/icon.png", wide}},
         "a/b/c/icon.png"},
        {"equals: name order", {{"b/logo.png", wide}, {"a/logo.png", wide}}, "a/logo.png"},
        {"equals across depths: the first met, 122",
         {{"a/favicon.icns", "no size to read"}, {"icon.png", wide}},
         "a/favicon.icns"},
        {"equals: upper case first",
         {{"b/logo.png", wide}, {"a/logo.png", wide}, {"B/logo.png", wide}},
         "B/logo.png"},
        {"hidden, build folders and bundles", hidden, std::nullopt},
        {"beside a build folder", {hidden.back(), {"static/logo.png", wide}}, "static/logo.png"},
    };
    PosixFileSystem files;
    for (const auto& expected : cases) {
        testing::TemporaryDirectory project;
        for (const auto& [path, bytes] : expected.files)
            project.write(path, bytes);
        const testing::FakeImageFormats formats(expected.undecodable);
        const auto best = IconScanner(files, formats).bestIcon(project.path());
        EXPECT_EQ(best, expected.best ? std::optional(project.path() + "/" + *expected.best)
                                      : std::nullopt)
            << expected.what;
    }
}

// A root that is a file is its own icon when it is an image. At most 2,000 entries are
// examined; opening a FIFO without a writer would wait for one; links to folders may loop.
TEST(IconScannerTest, ExaminesAtMostTwoThousandRegularFilesAndNoLinkedFolders) {
    testing::TemporaryDirectory project;
    const auto at = [&](const std::string& path) { return project.path() + "/" + path; };
    PosixFileSystem files;
    const testing::FakeImageFormats formats{{"heic"}};
    const IconScanner scanner{files, formats};
    const std::string logo = project.write("logo.PNG", square);
    EXPECT_EQ(scanner.bestIcon(logo), logo);
    for (const std::string& path :
         {project.write("notes.txt", "text"), project.write("logo.heic", ""), at("missing")})
        EXPECT_EQ(scanner.bestIcon(path), std::nullopt) << path;
    EXPECT_TRUE(scanner.isSquare(project.write("a.png", image(100, 93))));
    EXPECT_FALSE(scanner.isSquare(project.write("b.png", image(100, 92))));
    EXPECT_TRUE(scanner.isSquare(project.write("c.svg", R"(<svg viewBox="0 0 24 24"/>)")));
    EXPECT_FALSE(scanner.isSquare(project.makeFolder("f.png")));
    std::filesystem::remove_all(project.path());

    ASSERT_EQ(::mkfifo((project.makeFolder("fifo") + "/icon.png").c_str(), 0600), 0);
    EXPECT_EQ(scanner.bestIcon(at("fifo/icon.png")), std::nullopt);
    project.makeFolder("logo.png");
    std::filesystem::create_directory_symlink(project.path(), at("loop"));
    std::filesystem::create_directory_symlink("..", project.makeFolder("a") + "/up");
    testing::TemporaryDirectory elsewhere;
    elsewhere.write("icon.png", square);
    std::filesystem::create_directory_symlink(elsewhere.path(), at("shared"));
    EXPECT_EQ(scanner.bestIcon(project.path()), std::nullopt);
    project.write("z/mark.svg", wide);
    EXPECT_EQ(scanner.bestIcon(project.path()), at("z/mark.svg"));
    // Pre-order: "a" is entry 1, its files 2 to 1999, logo.png entry 2000.
    for (int i = 0; i < 1998; ++i)
        project.write("limit/a/" + std::to_string(i), "");
    project.write("limit/logo.png", wide);
    EXPECT_EQ(scanner.bestIcon(at("limit")), at("limit/logo.png"));
    project.write("limit/a/one-more", "");
    EXPECT_EQ(scanner.bestIcon(at("limit")), std::nullopt);
}

} // namespace
} // namespace tidewell
