#include "gui/windowsystem/x11/PointerEventMonitor.h"

#include "support/ScopedEnvironment.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

// Its moves are walked end to end; that it says so when there is no X server to watch is not.
TEST(PointerEventMonitorTest, WithoutAnXServerItDoesNotStart) {
    testing::ScopedEnvironment environment;
    environment.set("DISPLAY", ":999");
    PointerEventMonitor monitor([](int, int, unsigned) {});
    EXPECT_FALSE(monitor.start());
}

} // namespace
} // namespace tidewell
