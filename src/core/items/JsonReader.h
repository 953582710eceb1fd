#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tidewell {

// A strict reader of JSON text (RFC 8259, UTF-8) that walks it once, front to back, and
// copies out only the values asked for. The items file is read on every command, so
// nothing is built for the parts nobody reads. Every operation skips the whitespace in
// front of it and answers false on malformed text, leaving the reader somewhere inside it.
class JsonReader {
public:
    explicit JsonReader(std::string_view text) : text_(text) {}

    // Takes the character when it comes next. Inline, as is the whitespace it skips: the
    // reader takes every structural character of a large file through here.
    bool consume(char expected) {
        skipWhitespace();
        if (position_ >= text_.size() || text_[position_] != expected)
            return false;
        ++position_;
        return true;
    }
    // Nothing but whitespace is left.
    bool isAtEnd();
    // Takes null when it comes next.
    bool consumeNull();

    bool readString(std::string& into);
    // The same string as a view: into the text when it holds no escapes, else into a buffer
    // of the reader's that the next read reuses. Nothing is copied for plain strings.
    bool readText(std::string_view& into);
    bool readBoolean(bool& into);
    // Only integers that fit 64 signed bits: 1.0 and 1e2 are no integers.
    bool readInteger(std::int64_t& into);
    // Checks and passes over any value, however nested (up to a depth that no real file
    // reaches, so that hostile text cannot exhaust the stack).
    bool skipValue(int depth = 0);

private:
    void skipWhitespace() {
        while (position_ < text_.size()) {
            const char c = text_[position_];
            if (c != ' ' && c != '\n' && c != '\r' && c != '\t')
                return;
            ++position_;
        }
    }
    bool consumeWord(std::string_view word);
    // Takes the opening quote and the plain characters after it, which begin at `start`.
    bool beginString(std::size_t& start);
    // Passes over plain characters up to a quote, a backslash or a control character;
    // false at the end of the text or on invalid UTF-8.
    bool skipPlainRun();
    bool readEscapedRest(std::string& into);
    bool appendEscape(std::string& into);
    bool readHexQuad(std::uint32_t& into);
    // Passes over a number; tells whether it had a fraction or an exponent.
    bool skipNumber(bool& isInteger);
    bool skipDigits();

    std::string_view text_;
    std::size_t position_ = 0;
    std::string scratch_;
};

} // namespace tidewell
