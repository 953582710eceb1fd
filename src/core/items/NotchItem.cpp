#include "core/items/NotchItem.h"

#include "core/items/Utf8Text.h"

#include <array>
#include <cstdint>
#include <utf8proc.h>
#include <utility>
#include <vector>

namespace tidewell {

namespace {

constexpr std::array<std::string_view, 7> palette = {
    "#5E7CE2", "#2FA57C", "#C66A4A", "#A45CC2", "#D39A31", "#4E91A8", "#CD5D7D",
};

bool isAsciiLowerOrDigit(char32_t c) {
    return (c >= U'a' && c <= U'z') || (c >= U'0' && c <= U'9');
}

bool isAsciiUpper(char32_t c) {
    return c >= U'A' && c <= U'Z';
}

// Runs of letters, marks and numbers; camel case ("myProject", "Project2Go") also
// separates words where an ASCII lower-case letter or digit meets an ASCII capital.
std::vector<std::u32string> wordsOf(std::u32string_view name) {
    std::vector<std::u32string> words;
    std::u32string current;
    const auto endWord = [&] {
        if (!current.empty())
            words.push_back(std::exchange(current, {}));
    };
    char32_t previous = 0;
    for (const char32_t c : name) {
        const bool isCamelBoundary = isAsciiLowerOrDigit(previous) && isAsciiUpper(c);
        previous = c;
        if (isCamelBoundary || !Utf8Text::isAlphanumeric(c))
            endWord();
        if (Utf8Text::isAlphanumeric(c))
            current += c;
    }
    endWord();
    return words;
}

// User-perceived characters, so that a letter keeps its combining marks.
std::vector<std::u32string> graphemesOf(std::u32string_view text) {
    std::vector<std::u32string> graphemes;
    utf8proc_int32_t state = 0;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const bool startsCluster =
            index == 0 ||
            utf8proc_grapheme_break_stateful(static_cast<utf8proc_int32_t>(text[index - 1]),
                                             static_cast<utf8proc_int32_t>(text[index]), &state);
        if (startsCluster)
            graphemes.emplace_back();
        graphemes.back() += text[index];
    }
    return graphemes;
}

std::u32string upperCased(std::u32string text) {
    for (char32_t& c : text)
        c = static_cast<char32_t>(utf8proc_toupper(static_cast<utf8proc_int32_t>(c)));
    return text;
}

bool isUpperCaseLetter(const std::u32string& grapheme) {
    return utf8proc_isupper(static_cast<utf8proc_int32_t>(grapheme.front())) != 0;
}

std::u32string firstGrapheme(std::u32string_view word) {
    return graphemesOf(word).front();
}

// One word, or none: its capitals when it has two ("ABC"), else its first two characters.
std::u32string initialsOfSource(std::u32string_view source) {
    const auto graphemes = graphemesOf(source);
    std::vector<std::u32string> capitals;
    for (const auto& grapheme : graphemes)
        if (isUpperCaseLetter(grapheme))
            capitals.push_back(grapheme);
    if (capitals.size() >= 2)
        return capitals[0] + capitals[1];
    std::u32string leading;
    for (std::size_t index = 0; index < graphemes.size() && index < 2; ++index)
        leading += graphemes[index];
    return upperCased(std::move(leading));
}

} // namespace

std::string NotchItem::makeInitials(std::string_view name) {
    const std::u32string codePoints = Utf8Text::decode(name);
    const auto words = wordsOf(codePoints);
    if (words.size() >= 2)
        return Utf8Text::encode(upperCased(firstGrapheme(words[0]) + firstGrapheme(words[1])));
    return Utf8Text::encode(initialsOfSource(words.empty() ? codePoints : words.front()));
}

std::string NotchItem::makeTint(std::string_view name) {
    std::uint64_t hash = 5381;
    for (const char byte : name)
        hash = hash * 33 + static_cast<unsigned char>(byte);
    return std::string(palette[hash % palette.size()]);
}

} // namespace tidewell
