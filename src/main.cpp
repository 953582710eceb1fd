// The one executable is both the application and, named `tide` or given a command, the
// command-line tool. The choice is made from the arguments before anything else exists:
// the tool must start in about a millisecond, so it never loads the user interface.

#include "core/cli/CLI.h"
#include "core/items/ItemDatabase.h"
#include "core/login/LaunchAgentManager.h"
#include "core/notify/NotificationCenter.h"
#include "core/notify/NotificationNames.h"
#include "core/platform/SystemClock.h"
#include "linux/CurrentApplicationLocation.h"
#include "linux/GuiLibrary.h"
#include "linux/PosixFileSystem.h"
#include "linux/PosixProcessLauncher.h"
#include "linux/QtPluginImageFormats.h"
#include "linux/SessionBusPoster.h"
#include "linux/SingleInstanceGuard.h"
#include "linux/XdgAutostartLoginItemService.h"
#include "linux/XdgPaths.h"

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <malloc.h>
#include <sys/mman.h>

namespace {

using namespace tidewell;

// A run reads, decodes and writes the whole items file and then ends: memory taken from
// the heap in large steps and never handed back spares it a system call and fresh zeroed
// pages each time a buffer of the file's size comes and goes.
void keepFreedMemory() {
    constexpr int largeStep = 64 << 20;
    ::mallopt(M_MMAP_THRESHOLD, largeStep);
    ::mallopt(M_TRIM_THRESHOLD, largeStep);
    ::mallopt(M_TOP_PAD, 8 << 20);
}

// Then the heap is laid out once, large enough for ten thousand records, and backed by huge
// pages where the system grants them on request: taking fresh memory a 4 KiB page at a time
// costs more than decoding what goes into it. Only the pages touched are ever taken.
void preferHugePages() {
    constexpr std::size_t heapSize = 32 << 20;
    constexpr std::uintptr_t hugePage = 2 << 20;
    void* const block = std::malloc(heapSize);
    if (!block)
        return;
    const auto begin = (reinterpret_cast<std::uintptr_t>(block) + hugePage - 1) & ~(hugePage - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(block) + heapSize) & ~(hugePage - 1);
    std::free(block);
    ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
}

int runTool(const std::vector<std::string>& arguments) {
    keepFreedMemory();
    preferHugePages();
    PosixFileSystem files;
    SystemClock clock;
    // The tool has no event loop, and nothing in it observes notifications.
    NotificationCenter localCenter([](MainQueue::Task task) { task(); });
    SessionBusPoster distributedCenter;
    const UserPaths paths = XdgPaths::userPaths();
    const QtPluginImageFormats imageFormats = QtPluginImageFormats::installed();
    ItemDatabase database({files, clock, localCenter, distributedCenter, imageFormats},
                          DataFolder(paths));
    const ApplicationLocation application = currentApplicationLocation();
    XdgAutostartLoginItemService loginItems(files, XdgPaths::configHome(), application);
    const LaunchAgentManager launchAtLogin(files, loginItems, paths, application);
    PosixProcessLauncher launcher;
    CLI cli({.database = database,
             .launchAtLogin = launchAtLogin,
             .launcher = launcher,
             .files = files,
             .home = paths.home,
             .applicationExecutable = application.executable,
             .version = TIDEWELL_VERSION,
             .out = std::cout,
             .errors = std::cerr});
    return cli.run(arguments);
}

// The application idles for hours between openings, each of which makes and drops pictures
// of the panel's size. Once the first large block is freed, glibc would raise its threshold
// and keep the later ones in the heap, whose pages stay with the process; a fixed threshold
// hands them back. Set before the user interface loads, so that its start is treated alike.
void returnFreedMemory() {
    ::mallopt(M_MMAP_THRESHOLD, 128 << 10);
}

// Only one application per user: a second start asks the first to show its shelf.
int runApplication(int argc, char** argv) {
    returnFreedMemory();
    const auto guard = SingleInstanceGuard::acquire(DataFolder(XdgPaths::userPaths()));
    if (!guard) {
        SessionBusPoster().post(notchShowShelf);
        return 0;
    }
    const std::string executable = currentApplicationLocation().executable;
    const std::string folder = executable.substr(0, executable.rfind('/'));
    return GuiLibrary::run(argc, argv, folder.empty() ? "/" : folder,
                           folder + "/" TIDEWELL_GUI_LIBRARY_FROM_BIN);
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv, argv + argc);
    if (CLI::isCLIInvocation(arguments))
        return runTool(arguments);
    return runApplication(argc, argv);
}
