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
    EXPECT_EQ(scanner.bestIcon(project.write("notes.txt", "text")), std::nullopt);
    EXPECT_EQ(scanner.bestIcon(project.write("logo.heic", "")), std::nullopt);
    EXPECT_EQ(scanner.bestIcon(at("missing")), std::nullopt);
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
