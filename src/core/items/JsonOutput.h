#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tidewell::JsonOutput {

// By byte: 0 when it is written as it is, else the letter of its short escape, or 'u'.
inline constexpr std::array<char, 256> escapes = [] {
    std::array<char, 256> letters{};
    for (int byte = 0; byte < 0x20; ++byte)
        letters[byte] = 'u';
    letters['"'] = '"';
    letters['\\'] = '\\';
    letters['/'] = '/';
    letters['\b'] = 'b';
    letters['\f'] = 'f';
    letters['\n'] = 'n';
    letters['\r'] = 'r';
    letters['\t'] = 't';
    return letters;
}();

// JSON text is produced twice by the same code: once into a Counter, to learn its length,
// then into a Buffer of exactly that length, so that a large file is written with one
// allocation and without a capacity check per character. Strings in quotes escape quote,
// backslash, slash and control characters; other UTF-8 is written as it is.
class Counter {
public:
    void put(char) { ++size_; }
    void put(std::string_view text) { size_ += text.size(); }
    // Text of a known length that the function writes in place.
    template <typename Write> void putWritten(std::size_t length, const Write&) { size_ += length; }
    void putQuoted(std::string_view text) {
        std::size_t length = text.size() + 2;
        for (const char c : text)
            length += escapedLength[static_cast<unsigned char>(c)];
        size_ += length;
    }
    std::size_t size() const { return size_; }

private:
    // By byte: how many characters its escape adds.
    static constexpr std::array<std::uint8_t, 256> escapedLength = [] {
        std::array<std::uint8_t, 256> lengths{};
        for (std::size_t byte = 0; byte < lengths.size(); ++byte)
            lengths[byte] = escapes[byte] == 0 ? 0 : escapes[byte] == 'u' ? 5 : 1;
        return lengths;
    }();

    std::size_t size_ = 0;
};

class Buffer {
public:
    explicit Buffer(char* start) : next_(start) {}
    void put(char c) { *next_++ = c; }
    void put(std::string_view text) {
        std::memcpy(next_, text.data(), text.size());
        next_ += text.size();
    }
    template <typename Write> void putWritten(std::size_t length, const Write& write) {
        write(next_);
        next_ += length;
    }
    // Byte by byte: the runs between escapes are short.
    void putQuoted(std::string_view text) {
        static constexpr char hexDigits[] = "0123456789abcdef";
        *next_++ = '"';
        for (const char c : text) {
            const auto byte = static_cast<unsigned char>(c);
            const char letter = escapes[byte];
            if (letter == 0) {
                *next_++ = c;
                continue;
            }
            *next_++ = '\\';
            *next_++ = letter;
            if (letter == 'u') {
                put("00");
                *next_++ = hexDigits[byte >> 4];
                *next_++ = hexDigits[byte & 0x0F];
            }
        }
        *next_++ = '"';
    }

private:
    char* next_;
};

} // namespace tidewell::JsonOutput
