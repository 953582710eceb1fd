#include "gui/windowsystem/x11/PointerEventMonitor.h"

#include "gui/EventLoopWait.h"
#include "support/X11TestClient.h"

#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tidewell {
namespace {

using testing::DesktopDisplay;
using testing::pumpEventsFor;
using testing::pumpEventsUntil;
using testing::X11TestClient;
using namespace std::chrono_literals;

struct PointerReport {
    double x;
    double y;
    unsigned buttonMask;
};

class PointerReports {
public:
    PointerEventMonitor::Handler handler() {
        return [this](double x, double y, unsigned mask) { reports_.push_back({x, y, mask}); };
    }
    std::size_t count() const { return reports_.size(); }
    const PointerReport& last() const { return reports_.back(); }
    bool reachedCount(std::size_t count) {
        return pumpEventsUntil([&] { return reports_.size() >= count; });
    }

private:
    std::vector<PointerReport> reports_;
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
    DesktopDisplay display;
    X11TestClient client;
    PointerReports reports;
    PointerEventMonitor monitor{reports.handler()};
};

TEST_F(PointerEventMonitorTest, ReportsMovesAndButtonsOverAnotherClientsWindow) {
    const unsigned long window = client.createWindow(100, 100, 400, 300);
    ASSERT_TRUE(monitor.start());

    client.movePointerTo(250, 180);
    ASSERT_TRUE(reports.reachedCount(1));
    EXPECT_EQ(client.windowUnderPointer(), window);
    EXPECT_EQ(reports.last().x, 250);
    EXPECT_EQ(reports.last().y, 180);
    EXPECT_EQ(reports.last().buttonMask & PointerEventMonitor::primaryButtonMask, 0u);

    const std::size_t beforePress = reports.count();
    client.setPrimaryButton(true);
    ASSERT_TRUE(reports.reachedCount(beforePress + 1));
    EXPECT_NE(reports.last().buttonMask & PointerEventMonitor::primaryButtonMask, 0u);
    client.movePointerBy(0, 1);
    ASSERT_TRUE(pumpEventsUntil([&] { return reports.last().y == 181; }));
    EXPECT_EQ(reports.last().x, 250);
    EXPECT_NE(reports.last().buttonMask & PointerEventMonitor::primaryButtonMask, 0u);
    client.setPrimaryButton(false);
    ASSERT_TRUE(pumpEventsUntil(
        [&] { return (reports.last().buttonMask & PointerEventMonitor::primaryButtonMask) == 0; }));
}

TEST_F(PointerEventMonitorTest, StartingTwiceReportsEachMoveOnceAndStoppingEndsReports) {
    monitor.stop(); // never started: nothing happens
    ASSERT_TRUE(monitor.start());
    ASSERT_TRUE(monitor.start());

    client.movePointerBy(1, 0);
    ASSERT_TRUE(reports.reachedCount(1));
    client.movePointerBy(1, 0);
    ASSERT_TRUE(reports.reachedCount(2));
    pumpEventsFor(200ms);
    EXPECT_EQ(reports.count(), 2u);

    monitor.stop();
    client.movePointerBy(1, 0);
    pumpEventsFor(200ms);
    EXPECT_EQ(reports.count(), 2u);
}

// Raw events tell how far the pointer went, not where it is: a walk into the region from far
// away must still be noticed, and a held button makes every move count.
TEST_F(PointerEventMonitorTest, ReportsMovesInsideTheRegionsOfInterestTheFirstOneOutAndDrags) {
    ASSERT_TRUE(monitor.start());
    monitor.setInterest({.everywhere = false, .regions = {QRect(400, 0, 100, 20)}});
    client.movePointerTo(450, 400);
    for (int i = 0; i < 120; ++i)
        client.movePointerBy(0, -4); // the last ones push against the top edge
    ASSERT_TRUE(pumpEventsUntil([&] { return reports.count() > 0 && reports.last().y == 0; }));
    EXPECT_EQ(reports.last().x, 450);

    const std::size_t inside = reports.count();
    client.movePointerBy(0, 100);
    ASSERT_TRUE(pumpEventsUntil([&] { return reports.last().y > 20; })); // the first move out
    client.movePointerBy(0, 100);
    pumpEventsFor(200ms);
    EXPECT_EQ(reports.count(), inside + 1);

    client.setPrimaryButton(true);
    client.movePointerBy(1, 0);
    ASSERT_TRUE(pumpEventsUntil([&] { return reports.last().x == 451; }));
    client.setPrimaryButton(false);
    ASSERT_TRUE(pumpEventsUntil(
        [&] { return (reports.last().buttonMask & PointerEventMonitor::primaryButtonMask) == 0; }));
    const std::size_t released = reports.count();
    client.movePointerBy(1, 0);
    pumpEventsFor(200ms);
    EXPECT_EQ(reports.count(), released);
}

TEST_F(PointerEventMonitorTest, PointerAtRestCausesNoWakeUps) {
    ASSERT_TRUE(monitor.start());
    client.movePointerBy(1, 1);
    ASSERT_TRUE(reports.reachedCount(1));
    pumpEventsFor(100ms); // anything still in flight arrives first

    const std::size_t reportsBefore = reports.count();
    const long switchesBefore = voluntaryContextSwitches();
    pumpEventsFor(5s);
    EXPECT_EQ(reports.count(), reportsBefore);
    // The loop's own timer wakes it once; a polling monitor would wake it many times.
    EXPECT_LE(voluntaryContextSwitches() - switchesBefore, 3);
}

TEST(PointerEventMonitor, StartFailsWithoutDisplay) {
    PointerReports reports;
    PointerEventMonitor monitor(reports.handler());
    testing::ScopedEnvironment environment;
    environment.set("DISPLAY", ":999");
    EXPECT_FALSE(monitor.start());
}

} // namespace
} // namespace tidewell
