// CPU cost of the pointer monitor beside a floor: a minimal XInput 2 reader that only drains its
// raw events. Both run as child processes while this one moves the pointer of a virtual display
// through XTest, paced like a hand on a 60 Hz, a 125 Hz and a 1,000 Hz mouse, far from the open
// trigger at the top centre and inside it.
#include "gui/windowsystem/x11/PointerEventMonitor.h"
#include "support/VirtualDisplay.h"

#include <QCoreApplication>
#include <QRect>
#include <QSocketNotifier>
#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace {

constexpr auto runDuration = std::chrono::seconds(3);
// The virtual display is 1920 x 1080; the trigger is as wide as a missing notch is taken to be.
const QRect trigger(870, 0, 180, 32);
constexpr int farX = 300;
constexpr int farY = 800;
constexpr int nearX = 950;
constexpr int nearY = 6;
// The pointer goes round a small square, 4 pixels a move, as a hand that jiggles the mouse.
constexpr int stepsPerSide = 5;
constexpr int step = 4;

double cpuSeconds() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) { return time.tv_sec + time.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void reportReady() {
    std::cout << "ready" << std::endl;
}

void reportUse(long count, double startSeconds) {
    std::cout << count << ' ' << cpuSeconds() - startSeconds << std::endl;
}

// The monitor's side: listens as the shelf would, for moves into the trigger only when "far".
int runMonitor(int argc, char** argv, bool far) {
    QCoreApplication application(argc, argv);
    long reports = 0;
    tidewell::PointerEventMonitor monitor([&](int, int, unsigned) { ++reports; });
    if (!monitor.start())
        return 1;
    if (far)
        monitor.setInterest({.everywhere = false, .regions = {trigger}});
    const double startSeconds = cpuSeconds();
    reportReady();
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        char byte = 0;
        if (::read(STDIN_FILENO, &byte, 1) <= 0)
            application.quit();
    });
    application.exec();
    monitor.stop();
    reportUse(reports, startSeconds);
    return 0;
}

// The floor: raw motion read from a connection of its own, and nothing else done.
int runFloor() {
    Display* display = XOpenDisplay(nullptr);
    if (!display)
        return 1;
    unsigned char bits[XIMaskLen(XI_LASTEVENT)] = {};
    XISetMask(bits, XI_RawMotion);
    XIEventMask mask{.deviceid = XIAllMasterDevices, .mask_len = sizeof bits, .mask = bits};
    XISelectEvents(display, DefaultRootWindow(display), &mask, 1);
    XSync(display, False);
    const double startSeconds = cpuSeconds();
    reportReady();
    long events = 0;
    pollfd fds[2] = {{ConnectionNumber(display), POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
    while (::poll(fds, 2, -1) >= 0 && fds[1].revents == 0) {
        while (XPending(display) > 0) {
            XEvent event;
            XNextEvent(display, &event);
            ++events;
        }
    }
    reportUse(events, startSeconds);
    XCloseDisplay(display);
    return 0;
}

struct Child {
    pid_t pid = -1;
    int input = -1;
    FILE* output = nullptr;
};

Child startChild(const char* program, const char* role) {
    int toChild[2];
    int fromChild[2];
    if (::pipe2(toChild, O_CLOEXEC) != 0 || ::pipe2(fromChild, O_CLOEXEC) != 0)
        throw std::runtime_error(std::string("pipe: ") + std::strerror(errno));
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, toChild[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, fromChild[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, toChild[1]);
    posix_spawn_file_actions_addclose(&actions, fromChild[0]);
    char* arguments[] = {const_cast<char*>(program), const_cast<char*>(role), nullptr};
    Child child;
    if (::posix_spawn(&child.pid, program, &actions, nullptr, arguments, environ) != 0)
        throw std::runtime_error("cannot start a child process");
    posix_spawn_file_actions_destroy(&actions);
    ::close(toChild[0]);
    ::close(fromChild[1]);
    child.input = toChild[1];
    child.output = ::fdopen(fromChild[0], "r");
    char line[64] = {};
    if (!std::fgets(line, sizeof line, child.output) || std::strcmp(line, "ready\n") != 0)
        throw std::runtime_error(std::string("the ") + role + " process did not start");
    return child;
}

struct Use {
    long count = 0;
    double seconds = 0;
};

Use finishChild(Child& child) {
    ::close(child.input);
    Use use;
    if (std::fscanf(child.output, "%ld %lf", &use.count, &use.seconds) != 2)
        throw std::runtime_error("a child process reported nothing");
    std::fclose(child.output);
    ::waitpid(child.pid, nullptr, 0);
    return use;
}

// Returns the wall time the moves took.
double movePointer(Display* display, int movesPerSecond) {
    const auto interval = std::chrono::nanoseconds(1'000'000'000 / movesPerSecond);
    const long moves = movesPerSecond * runDuration.count();
    const int deltas[4][2] = {{step, 0}, {0, step}, {-step, 0}, {0, -step}};
    const auto start = std::chrono::steady_clock::now();
    for (long i = 0; i < moves; ++i) {
        std::this_thread::sleep_until(start + i * interval);
        const int* delta = deltas[(i / stepsPerSide) % 4];
        XTestFakeRelativeMotionEvent(display, delta[0], delta[1], CurrentTime);
        XFlush(display);
    }
    XSync(display, False);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void runCase(const char* program, Display* display, int movesPerSecond, bool far) {
    XWarpPointer(display, None, DefaultRootWindow(display), 0, 0, 0, 0, far ? farX : nearX,
                 far ? farY : nearY);
    XSync(display, False);
    Child floor = startChild(program, "--floor");
    Child monitor = startChild(program, far ? "--monitor-far" : "--monitor-near");
    const double wallSeconds = movePointer(display, movesPerSecond);
    // Let both take the last events before they are asked to stop.
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    const Use floorUse = finishChild(floor);
    const Use monitorUse = finishChild(monitor);
    const double monitorShare = 100 * monitorUse.seconds / wallSeconds;
    const double floorShare = 100 * floorUse.seconds / wallSeconds;
    std::printf("%6d/s  %-4s  %8.3f %%  %8.3f %%  %6.2fx  %7ld  %7ld\n", movesPerSecond,
                far ? "far" : "near", monitorShare, floorShare, monitorShare / floorShare,
                floorUse.count, monitorUse.count);
}

int runBenchmark(const char* program) {
    tidewell::testing::VirtualDisplay virtualDisplay;
    Display* display = XOpenDisplay(nullptr);
    if (!display)
        throw std::runtime_error("cannot open the virtual display");
    std::printf("%8s  %-4s  %10s  %10s  %7s  %7s  %7s\n", "moves", "where", "monitor", "floor",
                "ratio", "events", "reports");
    std::printf("%8s  %-4s  %10s  %10s\n", "", "", "(of a core)", "(of a core)");
    for (const int movesPerSecond : {60, 125, 1000})
        for (const bool far : {true, false})
            runCase(program, display, movesPerSecond, far);
    XCloseDisplay(display);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    try {
        if (argc > 1 && std::strcmp(argv[1], "--floor") == 0)
            return runFloor();
        if (argc > 1 && std::strncmp(argv[1], "--monitor-", 10) == 0)
            return runMonitor(argc, argv, std::strcmp(argv[1], "--monitor-far") == 0);
        return runBenchmark(argv[0]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
