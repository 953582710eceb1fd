#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Smallest valid headers of each image format, built byte by byte.
namespace tidewell::testing::ImageBytes {

inline std::string littleEndian(std::uint32_t value, int width) {
    std::string bytes;
    for (int i = 0; i < width; ++i)
        bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
    return bytes;
}

inline std::string bigEndian(std::uint32_t value, int width) {
    std::string bytes;
    for (int i = width - 1; i >= 0; --i)
        bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
    return bytes;
}

inline std::string png(std::uint32_t width, std::uint32_t height) {
    return std::string("\x89PNG\r\n\x1a\n", 8) + bigEndian(13, 4) + "IHDR" + bigEndian(width, 4) +
           bigEndian(height, 4) + std::string("\x08\x06\x00\x00\x00", 5) + bigEndian(0, 4);
}

// A baseline frame header with three components right after the start of image.
inline std::string jpeg(std::uint32_t width, std::uint32_t height) {
    return std::string("\xFF\xD8\xFF\xC0\x00\x11\x08", 7) + bigEndian(height, 2) +
           bigEndian(width, 2) + std::string("\x03\x01\x11\x00\x02\x11\x00\x03\x11\x00", 10);
}

inline std::string gif(std::uint32_t width, std::uint32_t height) {
    return "GIF89a" + littleEndian(width, 2) + littleEndian(height, 2) +
           std::string("\x00\x00\x00", 3);
}

// The file header and a 40-byte info header of a 24-bit bitmap.
inline std::string bmp(std::uint32_t width, std::int32_t height) {
    return "BM" + littleEndian(54, 4) + littleEndian(0, 4) + littleEndian(54, 4) +
           littleEndian(40, 4) + littleEndian(width, 4) +
           littleEndian(static_cast<std::uint32_t>(height), 4) + littleEndian(1, 2) +
           littleEndian(24, 2) + std::string(24, '\0');
}

inline std::string riffWebp(std::string_view chunkTag, const std::string& payload) {
    return "RIFF" + littleEndian(static_cast<std::uint32_t>(12 + payload.size()), 4) + "WEBP" +
           std::string(chunkTag) + littleEndian(static_cast<std::uint32_t>(payload.size()), 4) +
           payload;
}

inline std::string webpLossy(std::uint32_t width, std::uint32_t height) {
    return riffWebp("VP8 ", std::string("\x10\x02\x00\x9d\x01\x2a", 6) + littleEndian(width, 2) +
                                littleEndian(height, 2));
}

inline std::string webpLossless(std::uint32_t width, std::uint32_t height) {
    return riffWebp("VP8L", "\x2f" + littleEndian((width - 1) | (height - 1) << 14, 4));
}

inline std::string webpExtended(std::uint32_t width, std::uint32_t height) {
    return riffWebp("VP8X", std::string(4, '\0') + littleEndian(width - 1, 3) +
                                littleEndian(height - 1, 3));
}

// An icon directory with one 32-bit entry per (width, height) byte pair; 0 stands for 256.
inline std::string ico(const std::vector<std::pair<std::uint8_t, std::uint8_t>>& entries) {
    const auto count = static_cast<std::uint32_t>(entries.size());
    std::string bytes = littleEndian(0, 2) + littleEndian(1, 2) + littleEndian(count, 2);
    for (const auto& [width, height] : entries)
        bytes += std::string{static_cast<char>(width), static_cast<char>(height), 0, 0} +
                 littleEndian(1, 2) + littleEndian(32, 2) + littleEndian(40, 4) +
                 littleEndian(6 + 16 * count, 4);
    return bytes;
}

// Elements of the given types, each with a few bytes of payload.
inline std::string icns(const std::vector<std::string>& types) {
    std::string elements;
    for (const std::string& type : types)
        elements += type + bigEndian(12, 4) + "data";
    return "icns" + bigEndian(static_cast<std::uint32_t>(8 + elements.size()), 4) + elements;
}

// A table of contents listing the types, followed by only the first listed element.
inline std::string icnsWithTableOfContents(const std::vector<std::string>& types) {
    std::string table;
    for (const std::string& type : types)
        table += type + bigEndian(100000, 4);
    const std::string tableElement =
        "TOC " + bigEndian(static_cast<std::uint32_t>(8 + table.size()), 4) + table;
    return "icns" + bigEndian(2000000, 4) + tableElement + types.front() + bigEndian(100000, 4);
}

// One image file directory holding ImageWidth and ImageLength as SHORT (3) or LONG (4).
inline std::string tiff(bool isLittleEndian, std::uint32_t width, std::uint32_t height,
                        std::uint32_t type) {
    const auto number = [&](std::uint32_t value, int size) {
        return isLittleEndian ? littleEndian(value, size) : bigEndian(value, size);
    };
    const auto entry = [&](std::uint32_t tag, std::uint32_t value) {
        const std::string field =
            type == 3 ? number(value, 2) + std::string(2, '\0') : number(value, 4);
        return number(tag, 2) + number(type, 2) + number(1, 4) + field;
    };
    return (isLittleEndian ? std::string("II*\0", 4) : std::string("MM\0*", 4)) + number(8, 4) +
           number(3, 2) + entry(254, 0) + entry(256, width) + entry(257, height) + number(0, 4);
}

} // namespace tidewell::testing::ImageBytes
