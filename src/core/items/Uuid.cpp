#include "core/items/Uuid.h"

#include <random>

namespace tidewell {

namespace {

constexpr std::size_t hyphenPositions[] = {8, 13, 18, 23};
// Where the two digits of each byte begin in the text.
constexpr std::size_t digitPositions[] = {0,  2,  4,  6,  9,  11, 14, 16,
                                          19, 21, 24, 26, 28, 30, 32, 34};

// Hexadecimal digit values by byte, -1 for every other byte; the items file holds thousands
// of identifiers, all read on every load.
constexpr std::array<std::int8_t, 256> hexDigitValues = [] {
    std::array<std::int8_t, 256> values{};
    values.fill(-1);
    for (int digit = 0; digit < 10; ++digit)
        values['0' + digit] = static_cast<std::int8_t>(digit);
    for (int digit = 0; digit < 6; ++digit) {
        values['a' + digit] = static_cast<std::int8_t>(10 + digit);
        values['A' + digit] = static_cast<std::int8_t>(10 + digit);
    }
    return values;
}();

std::mt19937_64& generator() {
    thread_local std::mt19937_64 engine = [] {
        std::random_device device;
        std::seed_seq seed{device(), device(), device(), device(), device(), device()};
        return std::mt19937_64(seed);
    }();
    return engine;
}

} // namespace

Uuid Uuid::random() {
    std::array<std::uint8_t, 16> bytes;
    std::uniform_int_distribution<unsigned> byteDistribution(0, 255);
    for (auto& byte : bytes)
        byte = static_cast<std::uint8_t>(byteDistribution(generator()));
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40); // version 4
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80); // RFC 4122 variant
    return Uuid(bytes);
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
    if (text.size() != textLength)
        return std::nullopt;
    for (const std::size_t hyphen : hyphenPositions)
        if (text[hyphen] != '-')
            return std::nullopt;
    std::array<std::uint8_t, 16> bytes{};
    int invalid = 0; // negative once any digit is not hexadecimal
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        const std::size_t position = digitPositions[index];
        const int high = hexDigitValues[static_cast<unsigned char>(text[position])];
        const int low = hexDigitValues[static_cast<unsigned char>(text[position + 1])];
        invalid |= high | low;
        bytes[index] = static_cast<std::uint8_t>(high << 4 | low);
    }
    if (invalid < 0)
        return std::nullopt;
    return Uuid(bytes);
}

std::string Uuid::text() const {
    std::string result(textLength, '-');
    writeText(result.data());
    return result;
}

void Uuid::writeText(char* out) const {
    static constexpr char digits[] = "0123456789ABCDEF";
    for (const std::size_t hyphen : hyphenPositions)
        out[hyphen] = '-';
    for (std::size_t index = 0; index < bytes_.size(); ++index) {
        out[digitPositions[index]] = digits[bytes_[index] >> 4];
        out[digitPositions[index] + 1] = digits[bytes_[index] & 0x0F];
    }
}

} // namespace tidewell
