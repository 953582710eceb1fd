#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tidewell {

// A 128-bit identifier in its canonical 8-4-4-4-12 text form.
class Uuid {
public:
    Uuid() = default;
    explicit Uuid(const std::array<std::uint8_t, 16>& bytes) : bytes_(bytes) {}

    // A fresh random (version 4) identifier.
    static Uuid random();
    // Accepts the canonical form with hexadecimal digits of either case; nothing else.
    static std::optional<Uuid> parse(std::string_view text);
    static constexpr std::size_t textLength = 36;
    // Upper-case canonical text.
    std::string text() const;
    // The same text into a buffer of textLength characters, without an allocation.
    void writeText(char* out) const;

    auto operator<=>(const Uuid&) const = default;

private:
    std::array<std::uint8_t, 16> bytes_{};
};

} // namespace tidewell
