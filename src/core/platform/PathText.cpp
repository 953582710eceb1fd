#include "core/platform/PathText.h"

#include <algorithm>
#include <vector>

namespace tidewell::PathText {

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (std::size_t start = 0, end = 0; end != std::string_view::npos; start = end + 1) {
        end = text.find(separator, start);
        parts.push_back(text.substr(start, end - start));
    }
    return parts;
}

bool isStandardized(std::string_view path) {
    if (path.empty() || path == "/")
        return !path.empty();
    if (path.back() == '/' || path.find("//") != std::string_view::npos)
        return false;
    return std::ranges::none_of(split(path, '/'), [](std::string_view component) {
        return component == "." || component == "..";
    });
}

std::string standardized(std::string_view path) {
    if (isStandardized(path))
        return std::string(path);
    const bool isAbsolute = !path.empty() && path.front() == '/';
    std::vector<std::string_view> kept;
    for (const std::string_view component : split(path, '/')) {
        if (component.empty() || component == ".")
            continue;
        if (component == "..") {
            if (!kept.empty() && kept.back() != "..")
                kept.pop_back();
            else if (!isAbsolute)
                kept.push_back(component);
            continue;
        }
        kept.push_back(component);
    }
    std::string result = isAbsolute ? "/" : "";
    for (std::size_t i = 0; i < kept.size(); ++i) {
        if (i > 0)
            result += '/';
        result += kept[i];
    }
    if (result.empty() && !path.empty())
        result = ".";
    return result;
}

std::string absolute(std::string_view path, std::string_view directory) {
    if (!path.empty() && path.front() == '/')
        return std::string(path);
    std::string result(directory);
    if (result.empty() || result.back() != '/')
        result += '/';
    result += path;
    return result;
}

std::string expandingTilde(std::string_view path, std::string_view home) {
    if (path == "~" || path.substr(0, 2) == "~/")
        return std::string(home) + std::string(path.substr(1));
    return std::string(path);
}

std::string lastComponent(std::string_view path) {
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    if (path == "/")
        return "";
    const std::size_t slash = path.rfind('/');
    return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

std::string extension(std::string_view path) {
    const std::string name = lastComponent(path);
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos || dot == 0)
        return "";
    return name.substr(dot + 1);
}

std::string lowercasedAscii(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return result;
}

} // namespace tidewell::PathText
