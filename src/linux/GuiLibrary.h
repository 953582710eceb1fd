#pragma once

#include <string>

namespace tidewell::GuiLibrary {

// The user interface lives in libtidewell-gui.so, loaded only for an application start so
// that the command line starts without any toolkit. Its one entry point:
//   extern "C" int tidewell_gui_main(int argc, char** argv);
inline constexpr const char* fileName = "libtidewell-gui.so";
inline constexpr const char* entryPointName = "tidewell_gui_main";

// Loads the library from beside the executable, else from the installed folder, and runs
// its entry point. Returns the entry point's status, or 1 after one line on standard error
// when no library can be loaded.
int run(int argc, char** argv, const std::string& executableFolder,
        const std::string& installedFolder);

} // namespace tidewell::GuiLibrary
