#include "core/icons/ByteView.h"
#include "core/icons/ImageHeaderReaders.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace tidewell::ImageHeaderReaders {
namespace {

constexpr auto big = ByteView::Order::bigEndian;
constexpr std::size_t elementHeaderLength = 8;

// The edge length of each icon element type. Masks and the 16 x 12 mini icons are left
// out: the one is not an image of its own, the other is not square.
constexpr std::pair<std::string_view, int> iconTypes[] = {
    {"ICON", 32}, {"ICN#", 32},  {"icl4", 32},  {"icl8", 32},  {"il32", 32},   {"ics#", 16},
    {"ics4", 16}, {"ics8", 16},  {"is32", 16},  {"ich#", 48},  {"ich4", 48},   {"ich8", 48},
    {"ih32", 48}, {"it32", 128}, {"icp4", 16},  {"icp5", 32},  {"icp6", 64},   {"ic04", 16},
    {"ic05", 32}, {"ic07", 128}, {"ic08", 256}, {"ic09", 512}, {"ic10", 1024}, {"ic11", 32},
    {"ic12", 64}, {"ic13", 256}, {"ic14", 512}, {"icsb", 18},  {"icsB", 36},   {"sb24", 24},
    {"SB24", 48},
};

int edgeOf(std::string_view type) {
    for (const auto& [known, edge] : iconTypes)
        if (known == type)
            return edge;
    return 0;
}

// A table of contents lists every element's type and length, so it names the types of
// elements that lie beyond the bytes at hand.
int largestEdgeInTableOfContents(const ByteView& bytes, std::size_t begin, std::size_t end) {
    int largest = 0;
    for (std::size_t entry = begin; entry + elementHeaderLength <= end;
         entry += elementHeaderLength) {
        const auto type = bytes.slice(entry, 4);
        if (!type)
            break;
        largest = std::max(largest, edgeOf(*type));
    }
    return largest;
}

} // namespace

// The largest icon the file holds; elements are only looked at as far as the bytes reach.
std::optional<ImageSize> icnsSize(const ByteView& bytes) {
    const auto fileLength = bytes.unsignedInteger(4, 4, big);
    if (!bytes.hasTag(0, "icns") || !fileLength)
        return std::nullopt;

    int largest = 0;
    std::uint64_t element = elementHeaderLength;
    while (element + elementHeaderLength <= *fileLength) {
        const auto type = bytes.slice(element, 4);
        const auto length = bytes.unsignedInteger(element + 4, 4, big);
        if (!type || !length || *length < elementHeaderLength)
            break;
        const std::uint64_t elementEnd = std::min<std::uint64_t>(element + *length, *fileLength);
        largest = std::max(largest, edgeOf(*type));
        if (*type == "TOC ")
            largest = std::max(largest, largestEdgeInTableOfContents(
                                            bytes, element + elementHeaderLength, elementEnd));
        element += *length;
    }
    return positiveSize(largest, largest);
}

} // namespace tidewell::ImageHeaderReaders
