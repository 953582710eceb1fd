#include "core/icons/ImageSize.h"

#include <cstdint>
#include <gtest/gtest.h>

namespace tidewell {
namespace {

// The smallest valid headers of each format, built byte by byte.
std::string le(std::uint32_t value, int width) {
    std::string bytes;
    for (int i = 0; i < width; ++i)
        bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
    return bytes;
}

std::string be(std::uint32_t value, int width) {
    const std::string bytes = le(value, width);
    return {bytes.rbegin(), bytes.rend()};
}

// `bytes` with those at `offset` overwritten.
std::string patched(std::string bytes, std::size_t offset, const std::string& with) {
    return bytes.replace(offset, with.size(), with);
}

std::string riffWebp(std::string_view chunkTag, const std::string& payload) {
    const auto length = static_cast<std::uint32_t>(payload.size());
    return "RIFF" + le(12 + length, 4) + "WEBP" + std::string(chunkTag) + le(length, 4) + payload;
}

// An icon directory with one 32-bit entry per (width, height) byte pair; 0 stands for 256.
std::string ico(const std::vector<std::pair<std::uint8_t, std::uint8_t>>& entries) {
    const auto count = static_cast<std::uint32_t>(entries.size());
    std::string bytes = le(0, 2) + le(1, 2) + le(count, 2);
    for (const auto& [width, height] : entries)
        bytes += le(width, 1) + le(height, 1) + le(0, 2) + le(1, 2) + le(32, 2) + le(40, 4) +
                 le(6 + 16 * count, 4);
    return bytes;
}

// Elements of the given types, each with a few bytes of payload.
std::string icns(const std::vector<std::string>& types) {
    std::string elements;
    for (const std::string& type : types)
        elements += type + be(12, 4) + "data";
    return "icns" + be(static_cast<std::uint32_t>(8 + elements.size()), 4) + elements;
}

// One image file directory holding ImageWidth and ImageLength as SHORT (3) or LONG (4).
std::string tiff(bool isLittleEndian, std::uint32_t width, std::uint32_t height,
                 std::uint32_t type) {
    const auto number = [&](std::uint32_t value, int size) {
        return isLittleEndian ? le(value, size) : be(value, size);
    };
    const auto entry = [&](std::uint32_t tag, std::uint32_t value) {
        const std::string field =
            type == 3 ? number(value, 2) + std::string(2, '\0') : number(value, 4);
        return number(tag, 2) + number(type, 2) + number(1, 4) + field;
    };
    return (isLittleEndian ? std::string("II*\0", 4) : std::string("MM\0*", 4)) + number(8, 4) +
           number(3, 2) + entry(254, 0) + entry(256, width) + entry(257, height) + number(0, 4);
}

using Size = std::optional<std::pair<double, double>>;

// As a file is read: from its start, and further only where a header points.
Size sizeOfFile(const std::string& file) {
    const auto size = imageSizeOfFile([&](std::size_t offset, std::size_t length) {
        return offset <= file.size() ? std::optional(file.substr(offset, length)) : std::nullopt;
    });
    return size ? Size({size->width, size->height}) : std::nullopt;
}

TEST(ImageSize, ReadsEveryFormatFromItsHeader) {
    const std::string table = be(100000, 4);
    // No size: none may be read.
    const std::tuple<std::string, std::string, Size> samples[] = {
        {"png",
         std::string("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR\0\0\x01\x2c\0\0\0\xc8\x08\x06\0\0\0\0\0\0\0",
                     33),
         {{300, 200}}},
        {"jpeg frame after 64 KiB of metadata",
         "\xFF\xD8" + std::string("\xFF\xE1\xFF\xFF", 4) + std::string(0xFFFF - 2, '\0') +
             // a baseline frame header with three components
             std::string("\xFF\xC0\x00\x11\x08", 5) + be(480, 2) + be(640, 2) +
             std::string("\x03\x01\x11\x00\x02\x11\x00\x03\x11\x00", 10),
         {{640, 480}}},
        {"lossy webp, scaling bits aside",
         riffWebp("VP8 ", std::string("\x10\x02\x00\x9d\x01\x2a", 6) + le(320 | 0xC000, 2) +
                              le(240 | 0x4000, 2)),
         {{320, 240}}},
        {"lossless webp", riffWebp("VP8L", "\x2f" + le(16383 << 14, 4)), {{1, 16384}}},
        {"extended webp",
         riffWebp("VP8X", std::string(4, '\0') + le(1023, 3) + le(767, 3)),
         {{1024, 768}}},
        {"lossy webp, bad frame tag",
         riffWebp("VP8 ", std::string("\x11\x02\x00\x9d\x01\x2a\x10\x00\x10\x00", 10)),
         std::nullopt},
        {"ico: the largest entry, 0 meaning 256", ico({{16, 16}, {0, 0}, {32, 32}}), {{256, 256}}},
        {"ico entry of bit count 0, as of PNG data",
         patched(ico({{48, 48}}), 12, le(0, 2)),
         {{48, 48}}},
        {"cursor", patched(ico({{32, 32}}), 2, le(2, 1)), std::nullopt},
        {"ico data inside the directory", patched(ico({{32, 32}}), 18, le(5, 1)), std::nullopt},
        {"icns cut short: what the bytes reach", icns({"ic11", "ic09"}).substr(0, 24), {{32, 32}}},
        // A table of contents listing the types, followed by only the first listed element.
        {"icns table of contents",
         "icns" + be(2000000, 4) + "TOC " + be(32, 4) + "ic12" + table + "ic13" + table + "ic14" +
             table + "ic12" + table,
         {{512, 512}}},
        {"icns zero-length element", patched(icns({"ic08", "ic10"}), 12, be(0, 4)), std::nullopt},
        {"icns, 32-point PNG type", icns({"icp5"}), {{32, 32}}},
        {"icns, 128-point type", icns({"it32"}), {{128, 128}}},
        {"tiff, big-endian long", tiff(false, 5, 70000, 4), {{5, 70000}}},
        {"tiff, big-endian short", tiff(false, 100, 60, 3), {{100, 60}}},
        {"tiff directory at the end",
         patched(tiff(true, 100, 60, 3), 4, le(8 + 100000, 4)).insert(8, std::string(100000, '\0')),
         {{100, 60}}},
        {"svg, pt and in", R"(<svg width="72pt" height="1in"/>)", {{96, 96}}},
        {"svg, pc", R"(<svg width="6pc" height="3pc"/>)", {{96, 48}}},
        {"svg width only", R"(<svg width="128" viewBox="0 0 64 32"/>)", {{128, 64}}},
        {"svg infinite width", R"(<svg width="inf" viewBox="0 0 64 32"/>)", {{64, 32}}},
        {"svg after prolog, comment and doctype",
         "\xEF\xBB\xBF<?xml version=\"1.0\"?>\n<!-- <svg width=\"1\" height=\"9\"> -->\n"
         "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" [ <!ENTITY a \"b\"> ]>\n"
         "<svg data-width=\"3\" width=\"12\" height=\"12\">",
         {{12, 12}}},
        {"svg after an empty comment", "<!----><svg width=\"5\" height=\"6\"/>", {{5, 6}}},
        {"svg after a plain doctype", "<!DOCTYPE svg><svg width=\"5\" height=\"5\"/>", {{5, 5}}},
        {"svg, empty width", R"(<svg width="" viewBox="0 0 64 32"/>)", {{64, 32}}},
        {"a tag named svg-something", R"(<svgx="1" width="5" height="5"/>)", std::nullopt},
        {"svg attribute without =", R"(<svg a ""b" width="5" height="5"/>)", std::nullopt},
    };
    for (const auto& [what, bytes, size] : samples)
        EXPECT_EQ(sizeOfFile(bytes), size) << what;
}

} // namespace
} // namespace tidewell
