#pragma once

#include <string>
#include <vector>

namespace tidewell::bench {

// The shared libraries an executable loads, one "name => path" line each, as ldd reports.
std::vector<std::string> linkedLibraries(const std::string& executable);

// Those of the lines that name a Qt, GLib/GIO or X11 library: none of them belongs in the
// command-line tool's start.
std::vector<std::string> desktopLibraries(const std::vector<std::string>& libraries);

} // namespace tidewell::bench
