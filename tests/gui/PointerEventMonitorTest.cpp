#include "gui/windowsystem/x11/PointerEventMonitor.h"

#include "gui/EventLoopWait.h"
#include "support/ScopedEnvironment.h"
#include "support/X11TestClient.h"

#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tidewell {
namespace {

using testing::processEventsUntil;
using testing::pumpEventsFor;
using namespace std::chrono_literals;

struct PointerReport {
    double x;
    double y;
    unsigned buttonMask;
    bool isPressed() const { return (buttonMask & PointerEventMonitor::primaryButtonMask) != 0; }
};

long voluntaryContextSwitches() {
    std::ifstream status("/proc/thread-self/status");
    const std::string key = "voluntary_ctxt_switches:";
    for (std::string line; std::getline(status, line);)
        if (line.rfind(key, 0) == 0)
            return std::stol(line.substr(key.size()));
    return -1;
}

// A virtual desktop, a client that moves the pointer, and a monitor not yet started.
class PointerEventMonitorTest : public ::testing::Test {
protected:
    bool reportArrives(const std::function<bool(const PointerReport&)>& expected) {
        return processEventsUntil([&] { return !reports.empty() && expected(reports.back()); });
    }
    // Nothing comes for a while after everything in flight arrived.
    bool staysQuiet() {
        pumpEventsFor(100ms);
        const std::size_t before = reports.size();
        pumpEventsFor(200ms);
        return reports.size() == before;
    }

    testing::DesktopDisplay display;
    testing::X11TestClient client;
    std::vector<PointerReport> reports;
    PointerEventMonitor monitor{[this](double x, double y, unsigned mask) {
        reports.push_back({x, y, mask});
    }};
};

// Raw events tell how far the pointer went, not where it is: a walk into the region from far
// away must still be noticed, and a held button makes every move count; moves that count
// for nothing wake nothing.
TEST_F(PointerEventMonitorTest, ReportsMovesButtonsTheRegionsOfInterestTheFirstOneOutAndDrags) {
    monitor.stop(); // never started: nothing happens
    ASSERT_TRUE(monitor.start());
    ASSERT_TRUE(monitor.start()); // one monitor still, reporting each move once
    client.movePointerTo(250, 180);
    ASSERT_TRUE(reportArrives([](auto& r) { return r.x == 250 && r.y == 180 && !r.isPressed(); }));
    monitor.setInterest({.everywhere = false, .regions = {QRect(400, 0, 100, 20)}});
    client.movePointerTo(450, 400);
    for (int i = 0; i < 120; ++i)
        client.movePointerBy(0, -4); // the last ones push against the top edge
    ASSERT_TRUE(reportArrives([](auto& r) { return r.x == 450 && r.y == 0; }));
    ASSERT_TRUE(staysQuiet());
    const std::size_t inside = reports.size();
    client.movePointerBy(0, 100);
    ASSERT_TRUE(reportArrives([](auto& r) { return r.y > 20; })); // the first move out
    client.movePointerBy(0, 100);
    EXPECT_TRUE(staysQuiet());
    EXPECT_EQ(reports.size(), inside + 1);

    client.setPrimaryButton(true);
    client.movePointerBy(1, 0);
    ASSERT_TRUE(reportArrives([](auto& r) { return r.x == 451 && r.isPressed(); }));
    client.setPrimaryButton(false);
    ASSERT_TRUE(reportArrives([](auto& r) { return !r.isPressed(); }));
    const std::size_t released = reports.size();
    client.movePointerBy(1, 0);
    EXPECT_TRUE(staysQuiet());
    EXPECT_EQ(reports.size(), released);
    // At rest the loop wakes for its own timer only; a polling monitor would wake it often.
    const long switches = voluntaryContextSwitches();
    pumpEventsFor(1s);
    EXPECT_LE(voluntaryContextSwitches() - switches, 3);

    monitor.stop();
    monitor.setInterest({.everywhere = true, .regions = {}});
    client.movePointerBy(1, 0);
    EXPECT_TRUE(staysQuiet());
    EXPECT_EQ(reports.size(), released);
    testing::ScopedEnvironment environment;
    environment.set("DISPLAY", ":999");
    EXPECT_FALSE(monitor.start());
}

} // namespace
} // namespace tidewell
