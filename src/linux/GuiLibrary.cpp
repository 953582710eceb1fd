#include "linux/GuiLibrary.h"

#include <cstdio>
#include <dlfcn.h>

namespace tidewell::GuiLibrary {

int run(int argc, char** argv, const std::string& executableFolder,
        const std::string& installedFolder) {
    void* library = nullptr;
    std::string failure;
    for (const std::string& folder : {executableFolder, installedFolder}) {
        const std::string path = folder + "/" + fileName;
        library = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (library)
            break;
        if (failure.empty())
            failure = ::dlerror();
    }
    if (!library) {
        std::fprintf(stderr, "tidewell: cannot load the user interface: %s\n", failure.c_str());
        return 1;
    }
    using EntryPoint = int (*)(int, char**);
    const auto entryPoint = reinterpret_cast<EntryPoint>(::dlsym(library, entryPointName));
    if (!entryPoint) {
        std::fprintf(stderr, "tidewell: cannot load the user interface: %s\n", ::dlerror());
        return 1;
    }
    return entryPoint(argc, argv);
}

} // namespace tidewell::GuiLibrary
