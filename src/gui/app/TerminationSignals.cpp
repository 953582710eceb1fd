#include "gui/app/TerminationSignals.h"

#include <QCoreApplication>
#include <cerrno>
#include <csignal>
#include <fcntl.h>

namespace tidewell {
namespace {

constexpr std::array<int, 2> stopSignals = {SIGTERM, SIGINT};

// Where the handler writes; -1 while no handler is installed.
volatile std::sig_atomic_t signalWriteEnd = -1;

void noteSignal(int) {
    const int savedErrno = errno;
    const char byte = 1;
    // A full pipe already holds a wake-up: losing this byte loses nothing.
    [[maybe_unused]] const ssize_t ignored = ::write(signalWriteEnd, &byte, 1);
    errno = savedErrno;
}

void setHandler(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int signal : stopSignals)
        ::sigaction(signal, &action, nullptr);
}

std::array<int, 2> nonBlockingPipe() {
    std::array<int, 2> ends = {-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return {-1, -1};
    return ends;
}

} // namespace

TerminationSignals::TerminationSignals() : TerminationSignals(nonBlockingPipe()) {}

TerminationSignals::TerminationSignals(std::array<int, 2> pipe)
    : readEnd_(pipe[0]), writeEnd_(pipe[1]) {
    // Without a pipe the signals keep ending the process at once.
    if (readEnd_.get() < 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(readEnd_.get(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] {
        char bytes[16];
        while (::read(readEnd_.get(), bytes, sizeof bytes) > 0) {
        }
        QCoreApplication::quit();
    });
    signalWriteEnd = writeEnd_.get();
    setHandler(noteSignal);
}

TerminationSignals::~TerminationSignals() {
    if (readEnd_.get() < 0)
        return;
    setHandler(SIG_DFL);
    signalWriteEnd = -1;
}

} // namespace tidewell
