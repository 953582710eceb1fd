#include "core/icons/IconScanner.h"

#include "ImageBytes.h"
#include "linux/PosixFileSystem.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

using testing::ImageBytes::icns;
using testing::ImageBytes::png;

const std::string square = png(64, 64);
const std::string wide = png(64, 32);

class IconScannerTest : public ::testing::Test {
protected:
    std::optional<std::string> best() const { return scanner.bestIcon(project.path()); }
    std::string inProject(const std::string& relativePath) const {
        return project.path() + "/" + relativePath;
    }

    testing::TemporaryDirectory project;
    PosixFileSystem files;
    IconScanner scanner{files};
};

TEST_F(IconScannerTest, RootThatIsAFileIsItsOwnIconWhenItIsAnImage) {
    const std::string logo = project.write("logo.PNG", square);
    const std::string notes = project.write("notes.txt", "text");
    EXPECT_EQ(scanner.bestIcon(logo), logo);
    EXPECT_EQ(scanner.bestIcon(notes), std::nullopt);
}

TEST_F(IconScannerTest, FindsNothingWithoutAnImageNamedLikeAnIcon) {
    EXPECT_EQ(scanner.bestIcon(inProject("missing")), std::nullopt);
    EXPECT_EQ(best(), std::nullopt);
    project.write("README.md", "# Project");
    project.write("photo.png", square);
    project.write("logo.txt", "not an image");
    project.write("docs/iconography.md", "text");
    EXPECT_EQ(best(), std::nullopt);
}

TEST_F(IconScannerTest, MatchesKeywordsAndExtensionsInAnyCase) {
    project.write("a/my-logo.svg", "<svg/>");
    EXPECT_EQ(best(), inProject("a/my-logo.svg"));
    project.write("a/landmark.png", wide);
    EXPECT_EQ(best(), inProject("a/landmark.png")); // met first among equals
    project.write("AppIcon.HEIC", "");
    EXPECT_EQ(best(), inProject("AppIcon.HEIC"));
}

TEST_F(IconScannerTest, SquareImagesEarnTheirBonus) {
    // logo.png (92) against images/mark.png (84 + 35 preferred), met first.
    project.write("images/mark.png", wide);
    project.write("logo.png", square);
    EXPECT_EQ(best(), inProject("logo.png")); // 137 > 119

    project.write("images/mark.png", square);
    project.write("logo.png", wide);
    EXPECT_EQ(best(), inProject("images/mark.png")); // 164 > 92
}

TEST_F(IconScannerTest, ScoresFaviconsIcnsAndAssetCatalogs) {
    // assets/favicon.ico, not square: 84 + 20 + 35 = 139; icon.icns without a known icon
    // type, so not square: 92 + 30 + 18 = 140 wins although it is met later.
    project.write("assets/favicon.ico", wide);
    project.write("icon.icns", icns({"info"}));
    EXPECT_EQ(best(), inProject("icon.icns"));

    // favicon.ico at the root, square: 92 + 20 + 45 = 157 beats both.
    project.write("favicon.ico", square);
    EXPECT_EQ(best(), inProject("favicon.ico"));

    // In an asset catalog, square: 76 + 35 + 45 = 156 loses to 157 ...
    project.write("Assets.xcassets/AppIcon.appiconset/icon_512x512.png", square);
    EXPECT_EQ(best(), inProject("favicon.ico"));
    // ... and wins once the root favicon is not square (112).
    project.write("favicon.ico", wide);
    EXPECT_EQ(best(), inProject("Assets.xcassets/AppIcon.appiconset/icon_512x512.png"));
}

TEST_F(IconScannerTest, IgnoresFilesFiveLevelsDeep) {
    project.write("a/b/c/d/icon.png", square);
    EXPECT_EQ(best(), std::nullopt);
    project.write("a/b/c/icon.png", wide);
    EXPECT_EQ(best(), inProject("a/b/c/icon.png"));
}

TEST_F(IconScannerTest, EqualScoresGoToTheFirstNameInByteOrder) {
    project.write("b/logo.png", wide);
    project.write("a/logo.png", wide);
    EXPECT_EQ(best(), inProject("a/logo.png"));
    project.write("B/logo.png", wide); // upper case sorts before lower case
    EXPECT_EQ(best(), inProject("B/logo.png"));
}

TEST_F(IconScannerTest, SkipsBuildFoldersHiddenEntriesAndBundles) {
    for (const char* folder : {"node_modules", "Pods", "DerivedData", "BUILD", "dist", "out",
                               "vendor", "venv", "__pycache__", "target", "coverage"})
        project.write(std::string(folder) + "/icon.png", square);
    project.write(".git/icon.png", square);
    project.write(".icon.png", square);
    project.write("Tool.app/Contents/Resources/AppIcon.icns", icns({"ic10"}));
    project.write("Kit.Framework/Resources/icon.png", square);
    EXPECT_EQ(best(), std::nullopt);

    project.write("static/Build/logo.png", square);
    EXPECT_EQ(best(), std::nullopt);
    project.write("static/logo.png", wide);
    EXPECT_EQ(best(), inProject("static/logo.png"));
}

TEST_F(IconScannerTest, ExaminesAtMostTwoThousandEntries) {
    // Pre-order: the folder "a" is entry 1, its files 2 to 1999, logo.png entry 2000.
    for (int i = 0; i < 1998; ++i)
        project.write("a/" + std::to_string(i), "");
    project.write("logo.png", wide);
    EXPECT_EQ(best(), inProject("logo.png"));
    project.write("a/one-more", "");
    EXPECT_EQ(best(), std::nullopt);
}

TEST_F(IconScannerTest, DoesNotFollowLinksToDirectories) {
    std::filesystem::create_directory_symlink(project.path(), inProject("loop"));
    std::filesystem::create_directory_symlink("..", project.makeFolder("a") + "/up");
    testing::TemporaryDirectory elsewhere;
    elsewhere.write("icon.png", square);
    std::filesystem::create_directory_symlink(elsewhere.path(), inProject("shared"));
    EXPECT_EQ(best(), std::nullopt);
    project.write("z/logo.png", wide);
    EXPECT_EQ(best(), inProject("z/logo.png"));
}

TEST_F(IconScannerTest, PreferredDirectoriesAreThoseBelowTheRoot) {
    const std::string root = project.makeFolder("Assets/app");
    EXPECT_TRUE(scanner.isInPreferredDirectory(root + "/Public/x/logo.png", root));
    EXPECT_TRUE(scanner.isInPreferredDirectory(root + "/img/logo.png", root));
    EXPECT_FALSE(scanner.isInPreferredDirectory(root + "/logo.png", root));
    EXPECT_FALSE(scanner.isInPreferredDirectory(root + "/src/icons.png", root));
    EXPECT_FALSE(scanner.isInPreferredDirectory(root + "/logo.png", project.path() + "/Assets"));
    EXPECT_TRUE(scanner.isInPreferredDirectory(root + "/logo.png", project.path()));
}

TEST_F(IconScannerTest, SquareMeansWithinEightPercent) {
    EXPECT_TRUE(scanner.isSquare(project.write("a.png", png(100, 93))));
    EXPECT_FALSE(scanner.isSquare(project.write("b.png", png(100, 92))));
    EXPECT_TRUE(scanner.isSquare(project.write("c.svg", R"(<svg viewBox="0 0 24 24"/>)")));
    EXPECT_TRUE(scanner.isSquare(project.write("d.png", png(256, 256) + std::string(70000, 'x'))));
    EXPECT_FALSE(scanner.isSquare(project.write("e.png", "not an image")));
    EXPECT_FALSE(scanner.isSquare(inProject("missing.png")));
    EXPECT_FALSE(scanner.isSquare(project.makeFolder("f.png")));
}

} // namespace
} // namespace tidewell
