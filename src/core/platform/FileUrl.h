#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tidewell {

// URL text as drags and bus addresses carry it: purely lexical, nothing is looked up.
namespace FileUrl {

// An absolute URL, reduced to what it names on this computer.
struct Url {
    // The percent-decoded path of a file URL whose host is empty or "localhost"; none for
    // every other URL.
    std::optional<std::string> localPath;
};

// Every "%XX" replaced by its byte; none when a "%" is not followed by two hex digits.
std::optional<std::string> percentDecoded(std::string_view text);
// A scheme, a colon and the rest, with no blanks or control characters and well-formed
// escapes; none otherwise.
std::optional<Url> parse(std::string_view text);

} // namespace FileUrl
} // namespace tidewell
