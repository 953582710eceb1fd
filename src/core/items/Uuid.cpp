#include "core/items/Uuid.h"

#include <random>

namespace tidewell {
namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

bool isGroupSeparator(std::size_t position) {
    return position == 8 || position == 13 || position == 18 || position == 23;
}

std::optional<std::uint8_t> hexValue(char digit) {
    if (digit >= '0' && digit <= '9')
        return static_cast<std::uint8_t>(digit - '0');
    if (digit >= 'a' && digit <= 'f')
        return static_cast<std::uint8_t>(digit - 'a' + 10);
    if (digit >= 'A' && digit <= 'F')
        return static_cast<std::uint8_t>(digit - 'A' + 10);
    return std::nullopt;
}

} // namespace

Uuid Uuid::random() {
    thread_local std::mt19937_64 generator{[] {
        std::random_device device;
        std::seed_seq seed{device(), device(), device(), device()};
        return std::mt19937_64(seed);
    }()};
    std::array<std::uint8_t, 16> bytes{};
    for (std::size_t i = 0; i < bytes.size(); i += 8) {
        const std::uint64_t word = generator();
        for (std::size_t j = 0; j < 8; ++j)
            bytes[i + j] = static_cast<std::uint8_t>(word >> (8 * j));
    }
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40); // version 4
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80); // RFC 4122 variant
    return Uuid(bytes);
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
    if (text.size() != 36)
        return std::nullopt;
    std::array<std::uint8_t, 16> bytes{};
    std::size_t nibble = 0;
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (isGroupSeparator(position)) {
            if (text[position] != '-')
                return std::nullopt;
            continue;
        }
        const auto value = hexValue(text[position]);
        if (!value)
            return std::nullopt;
        bytes[nibble / 2] = static_cast<std::uint8_t>(bytes[nibble / 2] << 4 | *value);
        ++nibble;
    }
    return Uuid(bytes);
}

std::string Uuid::text() const {
    std::string result;
    result.reserve(36);
    for (std::size_t i = 0; i < bytes_.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            result += '-';
        result += hexDigits[bytes_[i] >> 4];
        result += hexDigits[bytes_[i] & 0x0F];
    }
    return result;
}

} // namespace tidewell
