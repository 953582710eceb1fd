// CPU cost of the pointer monitor: a child process runs it while this one moves the pointer
// of a virtual display 5,000 times through XTest, as a mouse would.
#include "gui/platform/PointerEventMonitor.h"
#include "support/VirtualDisplay.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace {

constexpr int moveCount = 5000;
// A fast mouse reports a thousand times a second; the moves come at that pace so that the
// monitor's share of a core is what a user moving the pointer would see.
constexpr auto moveInterval = std::chrono::milliseconds(1);

double cpuSeconds() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) { return time.tv_sec + time.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// The monitor's side: reports "ready" once listening, and once its input closes, its report
// count and the CPU time it used since then.
int runMonitor(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    long reports = 0;
    tidewell::PointerEventMonitor monitor([&](double, double, unsigned) { ++reports; });
    if (!monitor.start())
        return 1;
    const double startSeconds = cpuSeconds();
    std::cout << "ready" << std::endl;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        char byte = 0;
        if (::read(STDIN_FILENO, &byte, 1) <= 0)
            application.quit();
    });
    application.exec();
    std::cout << reports << ' ' << cpuSeconds() - startSeconds << std::endl;
    return 0;
}

struct Monitor {
    pid_t pid = -1;
    int input = -1;
    FILE* output = nullptr;
};

Monitor startMonitor(const char* program) {
    int toChild[2];
    int fromChild[2];
    if (::pipe(toChild) != 0 || ::pipe(fromChild) != 0)
        throw std::runtime_error(std::string("pipe: ") + std::strerror(errno));
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, toChild[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, fromChild[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, toChild[1]);
    posix_spawn_file_actions_addclose(&actions, fromChild[0]);
    char monitorFlag[] = "--monitor";
    char* arguments[] = {const_cast<char*>(program), monitorFlag, nullptr};
    Monitor monitor;
    if (::posix_spawn(&monitor.pid, program, &actions, nullptr, arguments, environ) != 0)
        throw std::runtime_error("cannot start the monitor process");
    posix_spawn_file_actions_destroy(&actions);
    ::close(toChild[0]);
    ::close(fromChild[1]);
    monitor.input = toChild[1];
    monitor.output = ::fdopen(fromChild[0], "r");
    char line[64] = {};
    if (!std::fgets(line, sizeof line, monitor.output) || std::strcmp(line, "ready\n") != 0)
        throw std::runtime_error("the monitor process did not start");
    return monitor;
}

void movePointer(Display* display) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < moveCount; ++i) {
        std::this_thread::sleep_until(start + i * moveInterval);
        XTestFakeRelativeMotionEvent(display, i % 2 == 0 ? 1 : -1, 0, CurrentTime);
        XSync(display, False);
    }
}

int runBenchmark(const char* program) {
    tidewell::testing::VirtualDisplay virtualDisplay;
    Display* display = XOpenDisplay(nullptr);
    if (!display)
        throw std::runtime_error("cannot open the virtual display");
    Monitor monitor = startMonitor(program);
    const double generatorStart = cpuSeconds();
    const auto wallStart = std::chrono::steady_clock::now();
    movePointer(display);
    const double generatorSeconds = cpuSeconds() - generatorStart;
    const double wallSeconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - wallStart).count();
    // Let the monitor take the last events before it is asked to stop.
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    ::close(monitor.input);
    long reports = 0;
    double monitorSeconds = 0;
    if (std::fscanf(monitor.output, "%ld %lf", &reports, &monitorSeconds) != 2)
        throw std::runtime_error("the monitor process reported nothing");
    std::fclose(monitor.output);
    ::waitpid(monitor.pid, nullptr, 0);
    XCloseDisplay(display);

    std::printf("%-22s %10d\n", "pointer moves", moveCount);
    std::printf("%-22s %10ld\n", "monitor reports", reports);
    std::printf("%-22s %10.1f ms\n", "wall time of moves", wallSeconds * 1000);
    std::printf("%-22s %10.1f ms  (%.1f%% of one core)\n", "monitor CPU", monitorSeconds * 1000,
                100 * monitorSeconds / wallSeconds);
    std::printf("%-22s %10.1f ms  (%.1f%% of one core)\n", "generator CPU", generatorSeconds * 1000,
                100 * generatorSeconds / wallSeconds);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    try {
        if (argc > 1 && std::strcmp(argv[1], "--monitor") == 0)
            return runMonitor(argc, argv);
        return runBenchmark(argv[0]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
