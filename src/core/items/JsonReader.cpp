#include "core/items/JsonReader.h"

#include "core/items/Utf8Text.h"

#include <array>
#include <charconv>

namespace tidewell {
namespace {

constexpr int maximumDepth = 1024;

// By byte: the ones that end a run of characters a string holds as they are.
constexpr std::array<bool, 256> endsPlainRun = [] {
    std::array<bool, 256> ends{};
    for (int byte = 0; byte < 0x20; ++byte)
        ends[byte] = true;
    ends['"'] = true;
    ends['\\'] = true;
    return ends;
}();

// The same, and every byte of a multi-byte character.
constexpr std::array<bool, 256> endsAsciiRun = [] {
    std::array<bool, 256> ends = endsPlainRun;
    for (int byte = 0x80; byte < 0x100; ++byte)
        ends[byte] = true;
    return ends;
}();

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

void appendUtf8(std::string& into, std::uint32_t codePoint) {
    if (codePoint < 0x80) {
        into += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        into += static_cast<char>(0xC0 | (codePoint >> 6));
        into += static_cast<char>(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        into += static_cast<char>(0xE0 | (codePoint >> 12));
        into += static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F));
        into += static_cast<char>(0x80 | (codePoint & 0x3F));
    } else {
        into += static_cast<char>(0xF0 | (codePoint >> 18));
        into += static_cast<char>(0x80 | ((codePoint >> 12) & 0x3F));
        into += static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F));
        into += static_cast<char>(0x80 | (codePoint & 0x3F));
    }
}

} // namespace

bool JsonReader::isAtEnd() {
    skipWhitespace();
    return position_ == text_.size();
}

bool JsonReader::consumeWord(std::string_view word) {
    skipWhitespace();
    if (text_.substr(position_, word.size()) != word)
        return false;
    position_ += word.size();
    return true;
}

bool JsonReader::consumeNull() {
    return consumeWord("null");
}

bool JsonReader::readBoolean(bool& into) {
    if (consumeWord("true"))
        into = true;
    else if (consumeWord("false"))
        into = false;
    else
        return false;
    return true;
}

// Decoded straight into the string: escaped slashes are in every path.
bool JsonReader::readString(std::string& into) {
    std::size_t start = 0;
    if (!beginString(start))
        return false;
    into.assign(text_.data() + start, position_ - start);
    return readEscapedRest(into);
}

bool JsonReader::readText(std::string_view& into) {
    std::size_t start = 0;
    if (!beginString(start))
        return false;
    if (text_[position_] == '"') {
        into = text_.substr(start, position_ - start);
        ++position_;
        return true;
    }
    scratch_.assign(text_, start, position_ - start);
    if (!readEscapedRest(scratch_))
        return false;
    into = scratch_;
    return true;
}

bool JsonReader::beginString(std::size_t& start) {
    if (!consume('"'))
        return false;
    start = position_;
    return skipPlainRun();
}

// ASCII first, in a loop kept in locals so that it reads no member again after each step;
// from the first byte of a multi-byte character on, the run is checked as UTF-8.
bool JsonReader::skipPlainRun() {
    const char* const text = text_.data();
    const std::size_t size = text_.size();
    std::size_t position = position_;
    while (position < size && !endsAsciiRun[static_cast<unsigned char>(text[position])])
        ++position;
    const std::size_t multiByteStart = position;
    while (position < size && !endsPlainRun[static_cast<unsigned char>(text[position])])
        ++position;
    position_ = position;
    return position < size &&
           (position == multiByteStart ||
            Utf8Text::isValid(text_.substr(multiByteStart, position - multiByteStart)));
}

// Runs of plain characters are copied whole; escapes are decoded one by one.
bool JsonReader::readEscapedRest(std::string& into) {
    for (;;) {
        const char stop = text_[position_++];
        if (stop == '"')
            return true;
        // Every path has its slashes escaped: they take the short way.
        if (stop == '\\' && position_ < text_.size() && text_[position_] == '/') {
            into += '/';
            ++position_;
        } else if (stop != '\\' || !appendEscape(into)) {
            return false;
        }
        const std::size_t start = position_;
        if (!skipPlainRun())
            return false;
        into.append(text_, start, position_ - start);
    }
}

bool JsonReader::appendEscape(std::string& into) {
    static constexpr std::string_view letters = "\"\\/bfnrt";
    static constexpr std::string_view characters = "\"\\/\b\f\n\r\t";
    if (position_ == text_.size())
        return false;
    const char letter = text_[position_++];
    if (const std::size_t shortForm = letters.find(letter); shortForm != std::string_view::npos) {
        into += characters[shortForm];
        return true;
    }
    std::uint32_t codePoint = 0;
    if (letter != 'u' || !readHexQuad(codePoint) || (codePoint >= 0xDC00 && codePoint < 0xE000))
        return false;
    if (codePoint >= 0xD800 && codePoint < 0xDC00) {
        std::uint32_t low = 0;
        if (text_.substr(position_, 2) != "\\u")
            return false;
        position_ += 2;
        if (!readHexQuad(low) || low < 0xDC00 || low >= 0xE000)
            return false;
        codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (low - 0xDC00);
    }
    appendUtf8(into, codePoint);
    return true;
}

bool JsonReader::readHexQuad(std::uint32_t& into) {
    if (text_.size() - position_ < 4)
        return false;
    const char* begin = text_.data() + position_;
    const auto [end, error] = std::from_chars(begin, begin + 4, into, 16);
    position_ += 4;
    return error == std::errc() && end == begin + 4;
}

bool JsonReader::skipDigits() {
    const std::size_t start = position_;
    while (position_ < text_.size() && isDigit(text_[position_]))
        ++position_;
    return position_ > start;
}

bool JsonReader::skipNumber(bool& isInteger) {
    skipWhitespace();
    if (position_ < text_.size() && text_[position_] == '-')
        ++position_;
    if (position_ < text_.size() && text_[position_] == '0')
        ++position_;
    else if (!skipDigits())
        return false;
    isInteger = true;
    if (position_ < text_.size() && text_[position_] == '.') {
        ++position_;
        isInteger = false;
        if (!skipDigits())
            return false;
    }
    if (position_ < text_.size() && (text_[position_] == 'e' || text_[position_] == 'E')) {
        ++position_;
        isInteger = false;
        if (position_ < text_.size() && (text_[position_] == '+' || text_[position_] == '-'))
            ++position_;
        if (!skipDigits())
            return false;
    }
    return true;
}

bool JsonReader::readInteger(std::int64_t& into) {
    skipWhitespace();
    const std::size_t start = position_;
    bool isInteger = false;
    if (!skipNumber(isInteger) || !isInteger)
        return false;
    const char* end = text_.data() + position_;
    const auto result = std::from_chars(text_.data() + start, end, into);
    return result.ec == std::errc() && result.ptr == end;
}

bool JsonReader::skipValue(int depth) {
    skipWhitespace();
    if (position_ == text_.size() || depth > maximumDepth)
        return false;
    const char first = text_[position_];
    const bool isObject = first == '{';
    std::string_view text;
    if (first == '"')
        return readText(text);
    if (first == 't' || first == 'f') {
        bool ignored = false;
        return readBoolean(ignored);
    }
    if (first == 'n')
        return consumeNull();
    if (!isObject && first != '[') {
        bool isInteger = false;
        return skipNumber(isInteger);
    }
    ++position_;
    const char close = isObject ? '}' : ']';
    if (consume(close))
        return true;
    do {
        if (isObject && (!readText(text) || !consume(':')))
            return false;
        if (!skipValue(depth + 1))
            return false;
    } while (consume(','));
    return consume(close);
}

} // namespace tidewell
