#include "core/platform/PathText.h"

#include <vector>

namespace tidewell::PathText {

bool isStandardized(std::string_view path) {
    if (path.empty() || path == "/")
        return !path.empty();
    if (path.back() == '/' || path.find("//") != std::string_view::npos)
        return false;
    for (std::size_t start = 0; start < path.size();) {
        std::size_t end = path.find('/', start);
        if (end == std::string_view::npos)
            end = path.size();
        const std::string_view component = path.substr(start, end - start);
        if (component == "." || component == "..")
            return false;
        start = end + 1;
    }
    return true;
}

std::string standardized(std::string_view path) {
    if (isStandardized(path))
        return std::string(path);
    const bool isAbsolute = !path.empty() && path.front() == '/';
    std::vector<std::string_view> components;
    std::size_t start = 0;
    while (start <= path.size()) {
        std::size_t end = path.find('/', start);
        if (end == std::string_view::npos)
            end = path.size();
        const std::string_view component = path.substr(start, end - start);
        start = end + 1;
        if (component.empty() || component == ".")
            continue;
        if (component == "..") {
            if (!components.empty() && components.back() != "..")
                components.pop_back();
            else if (!isAbsolute)
                components.push_back(component);
            continue;
        }
        components.push_back(component);
    }
    std::string result = isAbsolute ? "/" : "";
    for (std::size_t i = 0; i < components.size(); ++i) {
        if (i > 0)
            result += '/';
        result += components[i];
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
