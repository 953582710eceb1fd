#include "core/icons/ImageHeaderReaders.h"

#include <charconv>
#include <utility>

namespace tidewell::ImageHeaderReaders {
namespace {

constexpr std::string_view whitespace = " \t\r\n";
constexpr auto none = std::string_view::npos;

// The offset just after the first `terminator` at or after `from`, or none.
std::size_t after(std::string_view text, std::size_t from, std::string_view terminator) {
    const std::size_t found = text.find(terminator, from);
    return found == none ? none : found + terminator.size();
}

// A doctype ends at its ">", unless an internal subset in brackets comes first.
std::size_t afterDoctype(std::string_view text, std::size_t from) {
    const std::size_t mark = text.find_first_of("[>", from);
    if (mark == none || text[mark] == '>')
        return mark == none ? none : mark + 1;
    const std::size_t subsetEnd = text.find(']', mark);
    return subsetEnd == none ? none : after(text, subsetEnd, ">");
}

// Where the root element's "<" is, after the declaration, processing instructions,
// comments and a doctype that may come before it.
std::size_t rootElementStart(std::string_view text) {
    std::size_t at = text.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    while (at != none) {
        at = text.find_first_not_of(whitespace, at);
        if (at == none)
            return none;
        const std::string_view rest = text.substr(at);
        if (rest.starts_with("<?"))
            at = after(text, at + 2, "?>");
        else if (rest.starts_with("<!--"))
            at = after(text, at + 4, "-->");
        else if (rest.starts_with("<!DOCTYPE"))
            at = afterDoctype(text, at);
        else
            return rest.starts_with("<") ? at : none;
    }
    return none;
}

struct SvgAttributes {
    std::string_view width;
    std::string_view height;
    std::string_view viewBox;
};

// The attributes of the root start tag when it is an <svg> tag that ends within the text.
std::optional<SvgAttributes> rootSvgAttributes(std::string_view text) {
    const std::size_t start = rootElementStart(text);
    if (start == none || !text.substr(start).starts_with("<svg"))
        return std::nullopt;
    std::size_t at = start + 4;
    const bool nameEnds = at < text.size() &&
                          (whitespace.find(text[at]) != none || text[at] == '>' || text[at] == '/');
    if (!nameEnds)
        return std::nullopt;

    SvgAttributes attributes;
    while (true) {
        at = text.find_first_not_of(whitespace, at);
        if (at == none)
            return std::nullopt;
        if (text[at] == '>' || text.substr(at).starts_with("/>"))
            return attributes;
        const std::size_t nameEnd = text.find_first_of(" \t\r\n=/>", at);
        const std::size_t equals = text.find_first_not_of(whitespace, nameEnd);
        if (nameEnd == at || equals == none || text[equals] != '=')
            return std::nullopt;
        const std::size_t quote = text.find_first_not_of(whitespace, equals + 1);
        if (quote == none || (text[quote] != '"' && text[quote] != '\''))
            return std::nullopt;
        const std::size_t valueEnd = text.find(text[quote], quote + 1);
        if (valueEnd == none)
            return std::nullopt;
        const std::string_view name = text.substr(at, nameEnd - at);
        const std::string_view value = text.substr(quote + 1, valueEnd - quote - 1);
        if (name == "width")
            attributes.width = value;
        else if (name == "height")
            attributes.height = value;
        else if (name == "viewBox")
            attributes.viewBox = value;
        at = valueEnd + 1;
    }
}

// A finite number at the start of the text, and the text after it.
std::optional<std::pair<double, std::string_view>> leadingNumber(std::string_view text) {
    if (text.empty())
        return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || !std::isfinite(value))
        return std::nullopt;
    return std::pair(value, text.substr(static_cast<std::size_t>(end - text.data())));
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(whitespace);
    if (first == none)
        return {};
    return text.substr(first, text.find_last_not_of(whitespace) - first + 1);
}

// Pixels per unit of the absolute length units; relative units and percentages have none.
std::optional<double> pixelsPerUnit(std::string_view unit) {
    constexpr std::pair<std::string_view, double> units[] = {
        {"", 1},    {"px", 1},           {"pt", 96.0 / 72},   {"pc", 16},
        {"in", 96}, {"cm", 96.0 / 2.54}, {"mm", 96.0 / 25.4}, {"Q", 96.0 / 101.6},
    };
    for (const auto& [name, pixels] : units)
        if (name == unit)
            return pixels;
    return std::nullopt;
}

std::optional<double> length(std::string_view text) {
    const auto number = leadingNumber(trimmed(text));
    const auto pixels = number ? pixelsPerUnit(number->second) : std::nullopt;
    if (!pixels || number->first <= 0)
        return std::nullopt;
    return number->first * *pixels;
}

// The extent (third and fourth number) of "min-x min-y width height".
std::optional<ImageSize> viewBoxExtent(std::string_view text) {
    double numbers[4];
    for (double& number : numbers) {
        const std::size_t start = text.find_first_not_of(" \t\r\n,");
        const auto parsed = start == none ? std::nullopt : leadingNumber(text.substr(start));
        if (!parsed)
            return std::nullopt;
        number = parsed->first;
        text = parsed->second;
    }
    if (!trimmed(text).empty())
        return std::nullopt;
    return positiveSize(numbers[2], numbers[3]);
}

} // namespace

// The width and height attributes of the root <svg> tag; where one of them is missing or
// relative, the view box gives the proportions, and where both are, its extent.
std::optional<ImageSize> svgSize(const ByteView& bytes) {
    const auto attributes = rootSvgAttributes(bytes.start());
    if (!attributes)
        return std::nullopt;
    const auto width = length(attributes->width);
    const auto height = length(attributes->height);
    if (width && height)
        return positiveSize(*width, *height);
    const auto box = viewBoxExtent(attributes->viewBox);
    if (!box)
        return std::nullopt;
    if (width)
        return positiveSize(*width, *width * box->height / box->width);
    if (height)
        return positiveSize(*height * box->width / box->height, *height);
    return box;
}

} // namespace tidewell::ImageHeaderReaders
