#include "core/icons/ImageSize.h"

#include "ImageBytes.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

using namespace testing::ImageBytes;

void expectSize(const std::string& bytes, double width, double height) {
    const auto size = imageSizeFromHeader(bytes);
    ASSERT_TRUE(size.has_value());
    EXPECT_DOUBLE_EQ(size->width, width);
    EXPECT_DOUBLE_EQ(size->height, height);
}

void expectNoSize(const std::string& bytes) {
    EXPECT_FALSE(imageSizeFromHeader(bytes));
}

TEST(ImageSize, ReadsPngJpegGifAndBmpHeaders) {
    expectSize(png(512, 512), 512, 512);
    expectSize(png(300, 200), 300, 200);
    expectSize(jpeg(64, 48), 64, 48);
    expectSize(gif(16, 32), 16, 32);
    expectSize(bmp(40, 30), 40, 30);
    expectSize(bmp(40, -30), 40, 30); // stored top row first
    // The format comes from the content, whatever follows the header.
    expectSize(png(7, 9) + "trailing bytes", 7, 9);
}

TEST(ImageSize, FindsTheJpegFrameHeaderBehindOtherSegments) {
    const std::string start = jpeg(1, 1).substr(0, 2);
    const std::string frame = jpeg(640, 480).substr(2);
    const std::string exif = std::string("\xFF\xE1\x00\x08"
                                         "Exif\0\0",
                                         10);
    // A Huffman table whose code counts add up to more than 256 symbols: damaged, and no
    // reason to distrust the frame header after it.
    const std::string oversizedTable =
        std::string("\xFF\xC4\x00\x13\x00", 5) + std::string(16, '\x11');
    expectSize(start + exif + oversizedTable + frame, 640, 480);
    expectSize(start + "\xFF\xFF" + frame, 640, 480); // fill bytes before a marker
    expectSize(start + std::string("\xFF\xC2") + frame.substr(2), 640, 480); // progressive
    expectNoSize(start + std::string("\xFF\xDA\x00\x02", 4) + frame);        // scan before frame
    expectNoSize(start + std::string("\xFF\xE0\x00\x01", 4) + frame);        // impossible length
    expectNoSize(start + exif);
}

TEST(ImageSize, ReadsLossyLosslessAndExtendedWebp) {
    expectSize(webpLossy(320, 240), 320, 240);
    expectSize(webpLossless(1, 16384), 1, 16384);
    expectSize(webpExtended(1024, 768), 1024, 768);
    expectSize(webpExtended(1 << 24, 1), 1 << 24, 1);
    expectNoSize(riffWebp("VP8 ", std::string("\x11\x02\x00\x9d\x01\x2a\x10\x00\x10\x00", 10)));
    expectNoSize(riffWebp("VP8L", std::string("\x2e\x00\x00\x00\x00", 5)));
    expectNoSize(riffWebp("ALPH", std::string(10, '\0')));
    expectNoSize("RIFF" + littleEndian(4, 4) + "WAVEfmt ");
}

TEST(ImageSize, TakesTheLargestIcoEntry) {
    expectSize(ico({{16, 16}, {0, 0}, {32, 32}}), 256, 256);
    expectSize(ico({{48, 32}, {16, 16}}), 48, 32);
    expectSize(ico({{64, 64}}), 64, 64);
    expectNoSize(ico({}));
    std::string cursor = ico({{32, 32}});
    cursor[2] = 2;
    expectNoSize(cursor);
    std::string dataInsideDirectory = ico({{32, 32}});
    dataInsideDirectory[6 + 12] = 5;
    expectNoSize(dataInsideDirectory);
    expectNoSize(ico({{16, 16}, {32, 32}}).substr(0, 6 + 16 + 8)); // directory cut short
}

TEST(ImageSize, TakesTheLargestKnownIcnsType) {
    expectSize(icns({"is32", "s8mk", "ic10", "ic07"}), 1024, 1024);
    expectSize(icns({"ic12", "it32", "info"}), 128, 128);
    expectSize(icns({"il32", "ic04"}), 32, 32);
    expectNoSize(icns({"info", "name"}));
    expectNoSize(icns({}));
    // Only what the bytes reach is seen, unless a table of contents lists the rest.
    expectSize(icns({"ic11", "ic09"}).substr(0, 8 + 12 + 4), 32, 32);
    expectSize(icnsWithTableOfContents({"ic12", "ic13", "ic14"}), 512, 512);
    std::string zeroLength = icns({"ic08", "ic10"});
    zeroLength.replace(8 + 4, 4, bigEndian(0, 4));
    expectNoSize(zeroLength);
}

TEST(ImageSize, ReadsTiffInBothByteOrdersWithShortOrLongFields) {
    expectSize(tiff(true, 100, 60, 3), 100, 60);
    expectSize(tiff(false, 100, 60, 3), 100, 60);
    expectSize(tiff(true, 70000, 5, 4), 70000, 5);
    expectSize(tiff(false, 5, 70000, 4), 5, 70000);
    expectNoSize(tiff(true, 100, 60, 2)); // ASCII is not a size
    std::string directoryOutside = tiff(false, 10, 10, 3);
    directoryOutside.replace(4, 4, bigEndian(4000, 4));
    expectNoSize(directoryOutside);
}

TEST(ImageSize, ReadsTheRootSvgTag) {
    expectSize(R"(<svg xmlns="http://www.w3.org/2000/svg" width="24" height="16"></svg>)", 24, 16);
    expectSize("<svg width='48px' height = '48px'/>", 48, 48);
    expectSize(R"(<svg width="72pt" height="1in"/>)", 96, 96);
    expectSize(R"(<svg viewBox="0 0 1024 512"/>)", 1024, 512);
    expectSize(R"(<svg viewBox="-5,-5, 30,10"/>)", 30, 10);
    expectSize(R"(<svg width="100%" height="100%" viewBox="0 0 64 32"/>)", 64, 32);
    expectSize(R"(<svg width="128" viewBox="0 0 64 32"/>)", 128, 64);
    expectSize(R"(<svg height="10em" viewBox="0 0 64 32"/>)", 64, 32);
    expectSize("\xEF\xBB\xBF<?xml version=\"1.0\"?>\n<!-- <svg width=\"1\" height=\"9\"> -->\n"
               "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" [ <!ENTITY a \"b\"> ]>\n"
               "<svg data-width=\"3\" width=\"12\" height=\"12\">",
               12, 12);
    expectNoSize(R"(<html><svg width="10" height="10"/></html>)");
    expectNoSize(R"(<svgx width="10" height="10"/>)");
    expectNoSize(R"(<svg width="0" height="10"/>)");
    expectNoSize(R"(<svg width="-4" height="-4"/>)");
    expectNoSize(R"(<svg viewBox="0 0 10"/>)");
    expectNoSize(R"(<svg viewBox="0 0 10 10 10"/>)");
    expectNoSize(R"(<svg width="inf" height="inf"/>)");
    expectNoSize(R"(<svg width="10" height="10")"); // tag never ends
}

TEST(ImageSize, CutOrDamagedHeadersHaveNoWrongSize) {
    // Each sample with a length that cuts off its last extent.
    const std::pair<std::string, std::size_t> samples[] = {
        {png(300, 200), 20},
        {jpeg(64, 48), 9},
        {gif(16, 32), 8},
        {bmp(40, 30), 22},
        {webpLossy(320, 240), 28},
        {webpLossless(9, 7), 23},
        {webpExtended(1024, 768), 27},
        {ico({{16, 16}, {48, 32}}), 20},
        {tiff(true, 100, 60, 3), 40},
        {tiff(false, 100, 60, 4), 40},
        {R"(<svg width="24" height="16"/>)", 20},
    };
    for (const auto& [sample, withoutLastExtent] : samples) {
        const auto full = imageSizeFromHeader(sample);
        ASSERT_TRUE(full.has_value()) << sample;
        EXPECT_FALSE(imageSizeFromHeader(sample.substr(0, withoutLastExtent))) << sample;
        for (std::size_t length = 0; length < sample.size(); ++length) {
            const auto cut = imageSizeFromHeader(sample.substr(0, length));
            if (cut) {
                EXPECT_EQ(cut->width, full->width) << sample << " cut at " << length;
                EXPECT_EQ(cut->height, full->height) << sample << " cut at " << length;
            }
        }
    }
    expectNoSize("");
    expectNoSize("plain text, not an image");
    expectNoSize(std::string(4096, '\0'));
    expectNoSize(std::string(4096, '\xFF'));
}

} // namespace
} // namespace tidewell
