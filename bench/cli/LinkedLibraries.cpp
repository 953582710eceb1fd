#include "LinkedLibraries.h"

#include "Command.h"

#include <array>
#include <sstream>
#include <string_view>

namespace tidewell::bench {
namespace {

// ldd ends each line with the load address in parentheses, which differs from run to run.
std::string withoutLoadAddress(const std::string& line) {
    const std::size_t first = line.find_first_not_of(" \t");
    const std::size_t address = line.rfind(" (0x");
    if (first == std::string::npos)
        return "";
    return line.substr(first, address == std::string::npos ? std::string::npos : address - first);
}

} // namespace

std::vector<std::string> linkedLibraries(const std::string& executable) {
    const Command ldd{.label = "ldd " + executable,
                      .arguments = {"/usr/bin/ldd", executable},
                      .environment = {"PATH=/usr/bin:/bin"}};
    std::istringstream output(capturedOutput(ldd));
    std::vector<std::string> libraries;
    for (std::string line; std::getline(output, line);) {
        if (std::string library = withoutLoadAddress(line); !library.empty())
            libraries.push_back(library);
    }
    return libraries;
}

std::vector<std::string> desktopLibraries(const std::vector<std::string>& libraries) {
    constexpr std::array<std::string_view, 6> prefixes{"libQt",      "libglib", "libgio",
                                                       "libgobject", "libX",    "libxcb"};
    std::vector<std::string> found;
    for (const std::string& library : libraries) {
        for (std::string_view prefix : prefixes) {
            if (library.starts_with(prefix)) {
                found.push_back(library);
                break;
            }
        }
    }
    return found;
}

} // namespace tidewell::bench
