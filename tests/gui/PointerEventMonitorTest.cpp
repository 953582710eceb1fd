#include "gui/windowsystem/x11/PointerEventMonitor.h"

#include "gui/EventLoopWait.h"
#include "support/ScopedEnvironment.h"
#include "support/X11TestClient.h"

#include <gtest/gtest.h>
#include <vector>

namespace tidewell {
namespace {

using namespace std::chrono_literals;

struct PointerReport {
    double x;
    double y;
    bool isPressed;
};

// Raw events tell how far the pointer went, not where it is: a walk into the region from far
// away must still be noticed, and a held button makes every move count; moves that count
// for nothing are not reported. The shelf opening on such moves is checked end to end.
TEST(PointerEventMonitor, ReportsMovesInTheRegionsOfInterestTheFirstOneOutAndDrags) {
    const testing::DesktopDisplay display;
    testing::X11TestClient client;
    std::vector<PointerReport> reports;
    PointerEventMonitor monitor{[&](double x, double y, unsigned mask) {
        reports.push_back({x, y, (mask & PointerEventMonitor::primaryButtonMask) != 0});
    }};
    const auto arrives = [&](const std::function<bool(const PointerReport&)>& expected) {
        return testing::processEventsUntil(
            [&] { return !reports.empty() && expected(reports.back()); });
    };
    // Nothing comes for a while after everything in flight arrived.
    const auto staysQuiet = [&] {
        testing::pumpEventsFor(100ms);
        const std::size_t before = reports.size();
        testing::pumpEventsFor(200ms);
        return reports.size() == before;
    };
    ASSERT_TRUE(monitor.start());
    ASSERT_TRUE(monitor.start()); // still one monitor, reporting each move once
    monitor.setInterest({.everywhere = false, .regions = {QRect(400, 0, 100, 20)}});
    client.movePointerTo(450, 400);
    for (int i = 0; i < 120; ++i)
        client.movePointerBy(0, -4); // the last ones push against the top edge
    ASSERT_TRUE(arrives([](auto& r) { return r.x == 450 && r.y == 0 && !r.isPressed; }));
    ASSERT_TRUE(staysQuiet());
    const std::size_t inside = reports.size();
    client.movePointerBy(0, 100);
    ASSERT_TRUE(arrives([](auto& r) { return r.y > 20; })); // the first move out
    client.movePointerBy(0, 100);
    EXPECT_TRUE(staysQuiet());
    EXPECT_EQ(reports.size(), inside + 1);
    client.setPrimaryButton(true);
    client.movePointerBy(1, 0);
    ASSERT_TRUE(arrives([](auto& r) { return r.x == 451 && r.isPressed; }));
    client.setPrimaryButton(false);
    ASSERT_TRUE(arrives([](auto& r) { return !r.isPressed; }));
    const std::size_t released = reports.size();
    client.movePointerBy(1, 0);
    EXPECT_TRUE(staysQuiet());
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
