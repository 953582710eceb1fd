// The running application beside a minimal Qt Quick window started the same way: resident
// memory, CPU time and wake-ups while idle with the pointer at rest, and the time from the
// pointer entering the trigger at the top centre to the first frame on the screen.
#include "support/ChildProcess.h"
#include "support/PrivateSessionBus.h"
#include "support/TemporaryDirectory.h"
#include "support/VirtualDisplay.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using tidewell::testing::ChildProcess;

constexpr int projectCount = 20;
constexpr auto idleTime = 30s;
constexpr int openings = 10;

struct Usage {
    double residentMiB = 0;
    long voluntarySwitches = 0;
    double cpuSeconds = 0;
};

long statusField(const std::string& path, const std::string& key) {
    std::ifstream status(path);
    for (std::string line; std::getline(status, line);)
        if (line.rfind(key, 0) == 0)
            return std::stol(line.substr(key.size()));
    return 0;
}

// Over all threads: a helper thread that wakes counts as much as the main one.
Usage usageOf(pid_t pid) {
    const std::string folder = "/proc/" + std::to_string(pid);
    Usage usage;
    usage.residentMiB = statusField(folder + "/status", "VmRSS:") / 1024.0;
    for (const auto& task : std::filesystem::directory_iterator(folder + "/task"))
        usage.voluntarySwitches +=
            statusField(task.path().string() + "/status", "voluntary_ctxt_switches:");
    std::ifstream stat(folder + "/stat");
    std::string field;
    for (int index = 1; index <= 15 && stat >> field; ++index)
        if (index == 14 || index == 15)
            usage.cpuSeconds += std::stod(field) / static_cast<double>(::sysconf(_SC_CLK_TCK));
    return usage;
}

// The X side of the benchmark: a white desktop, the pointer, and the pixels on the screen.
class ScreenProbe {
public:
    ScreenProbe() : display_(XOpenDisplay(nullptr)) {
        if (!display_)
            throw std::runtime_error("cannot open the virtual display");
        root_ = DefaultRootWindow(display_);
        XSetWindowAttributes attributes{};
        attributes.override_redirect = True;
        attributes.background_pixel = WhitePixel(display_, DefaultScreen(display_));
        desktop_ = XCreateWindow(display_, root_, 0, 0, 1920, 1080, 0, CopyFromParent, InputOutput,
                                 CopyFromParent, CWOverrideRedirect | CWBackPixel, &attributes);
        XMapWindow(display_, desktop_);
        XLowerWindow(display_, desktop_);
        XSync(display_, False);
    }
    ~ScreenProbe() { XCloseDisplay(display_); }
    ScreenProbe(const ScreenProbe&) = delete;
    ScreenProbe& operator=(const ScreenProbe&) = delete;

    // A warp makes no pointer events; the relative move after it is what a mouse sends.
    void movePointer(int x, int y, int finalDeltaY) {
        XWarpPointer(display_, None, root_, 0, 0, 0, 0, x, y - finalDeltaY);
        XSync(display_, False);
        XTestFakeRelativeMotionEvent(display_, 0, finalDeltaY, CurrentTime);
        XSync(display_, False);
    }

    bool isBlackAt(int x, int y) {
        XImage* image = XGetImage(display_, root_, x, y, 1, 1, AllPlanes, ZPixmap);
        if (!image)
            return false;
        const unsigned long pixel = XGetPixel(image, 0, 0);
        XDestroyImage(image);
        return (pixel & 0xf0f0f0) == 0;
    }

    template <typename Condition>
    bool waitFor(Condition condition, std::chrono::milliseconds timeout) {
        const auto deadline = Clock::now() + timeout;
        while (Clock::now() < deadline)
            if (condition())
                return true;
        return false;
    }

private:
    Display* display_;
    Window root_ = 0;
    Window desktop_ = 0;
};

struct Figures {
    Usage idleStart;
    Usage idleEnd;
    std::vector<double> firstFrameMs;

    double medianFirstFrameMs() {
        if (firstFrameMs.empty())
            return -1;
        std::sort(firstFrameMs.begin(), firstFrameMs.end());
        return firstFrameMs[firstFrameMs.size() / 2];
    }
};

Figures measure(const ChildProcess::Launch& launch, ScreenProbe& screen) {
    ChildProcess process(launch);
    screen.movePointer(960, 700, 1);
    std::this_thread::sleep_for(3s); // start-up and its first loads settle
    Figures figures;
    figures.idleStart = usageOf(process.pid());
    std::this_thread::sleep_for(idleTime);
    figures.idleEnd = usageOf(process.pid());
    for (int opening = 0; opening < openings; ++opening) {
        const auto start = Clock::now();
        screen.movePointer(960, 2, -40);
        if (screen.waitFor([&] { return screen.isBlackAt(960, 1); }, 2s))
            figures.firstFrameMs.push_back(
                std::chrono::duration<double, std::milli>(Clock::now() - start).count());
        screen.movePointer(960, 700, 1);
        screen.waitFor([&] { return !screen.isBlackAt(960, 1); }, 3s);
        std::this_thread::sleep_for(500ms);
    }
    return figures;
}

std::map<std::string, std::string> environment(const std::string& home, const std::string& bus) {
    return {{"PATH", "/usr/bin:/bin"},
            {"HOME", home},
            {"XDG_DATA_HOME", home + "/.local/share"},
            {"XDG_CONFIG_HOME", home + "/.config"},
            {"XDG_RUNTIME_DIR", home + "/runtime"},
            {"DBUS_SESSION_BUS_ADDRESS", bus},
            {"DISPLAY", std::getenv("DISPLAY")}};
}

void pinProjects(const std::string& tide, const std::string& home,
                 const std::map<std::string, std::string>& variables) {
    for (int index = 0; index < projectCount; ++index) {
        const std::string folder = home + "/Projects/project-" + std::to_string(index + 1);
        std::filesystem::create_directories(folder);
        ChildProcess::run({.arguments = {tide, "add", folder},
                           .workingDirectory = home,
                           .environment = variables});
    }
}

void printRow(const char* label, double application, double minimal, const char* unit) {
    if (minimal > 0)
        std::printf("%-40s %10.1f %10.1f %9.2fx  %s\n", label, application, minimal,
                    application / minimal, unit);
    else
        std::printf("%-40s %10.1f %10.1f %10s  %s\n", label, application, minimal, "-", unit);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s <tidewell> <minimal window>\n", argv[0]);
        return 2;
    }
    try {
        tidewell::testing::VirtualDisplay display;
        tidewell::testing::PrivateSessionBus bus;
        tidewell::testing::TemporaryDirectory root;
        const std::string home = root.makeFolder("home");
        std::filesystem::create_directories(home + "/runtime");
        std::filesystem::permissions(home + "/runtime", std::filesystem::perms::owner_all);
        const auto variables = environment(home, bus.address());
        const std::string program = std::filesystem::absolute(argv[1]);
        const std::string minimalProgram = std::filesystem::absolute(argv[2]);
        pinProjects(std::filesystem::path(program).parent_path() / "tide", home, variables);
        ScreenProbe screen;
        Figures application = measure(
            {.arguments = {program}, .workingDirectory = home, .environment = variables}, screen);
        Figures minimal = measure(
            {.arguments = {minimalProgram}, .workingDirectory = home, .environment = variables},
            screen);

        const double seconds = std::chrono::duration<double>(idleTime).count();
        std::printf("%-40s %10s %10s %10s\n", "", "tidewell", "minimal", "ratio");
        printRow("resident memory, idle", application.idleEnd.residentMiB,
                 minimal.idleEnd.residentMiB, "MiB");
        printRow("CPU while idle",
                 (application.idleEnd.cpuSeconds - application.idleStart.cpuSeconds) * 1000,
                 (minimal.idleEnd.cpuSeconds - minimal.idleStart.cpuSeconds) * 1000, "ms in 30 s");
        printRow("wake-ups while idle",
                 (application.idleEnd.voluntarySwitches - application.idleStart.voluntarySwitches) /
                     seconds,
                 (minimal.idleEnd.voluntarySwitches - minimal.idleStart.voluntarySwitches) /
                     seconds,
                 "per second");
        printRow("first frame after entering the trigger", application.medianFirstFrameMs(),
                 minimal.medianFirstFrameMs(), "ms, median of 10");
        std::printf("(%d pinned projects; budgets: no wake-ups at rest, memory within 1.5x, "
                    "first frame within 16 ms)\n",
                    projectCount);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
