#include "gui/windowsystem/PointerCrossings.h"

#include "support/FakeDisplays.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

// A 1920 x 1080 display and a 1280 x 720 one right of it, their top edges level.
TEST(PointerCrossings, ALeaveIsReportedAsTheCornerOfTheDisplayLeft) {
    testing::FakeDisplays displays;
    displays.displays = {{.frame = {{0, 0}, {1920, 1080}}}, {.frame = {{1920, 360}, {1280, 720}}}};
    PointerCrossings crossings(displays);
    std::vector<Point> reports;
    crossings.left();
    EXPECT_EQ(crossings.location(), (Point{0, 0})) << "before any move: the main display";
    crossings.setHandler([&](Point point) { reports.push_back(point); });

    crossings.moved({960, 1079});
    crossings.left();
    crossings.moved({2560, 1079});
    crossings.left();
    EXPECT_EQ(reports, (std::vector<Point>{{960, 1079}, {0, 0}, {2560, 1079}, {1920, 360}}));

    crossings.setHandler({});
    crossings.moved({100, 1079});
    EXPECT_EQ(reports.size(), 4u) << "reported after the handler was taken away";
    EXPECT_EQ(crossings.location(), (Point{100, 1079}));
}

} // namespace
} // namespace tidewell
