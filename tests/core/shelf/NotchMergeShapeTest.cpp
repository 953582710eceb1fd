#include "core/shelf/NotchMergeShape.h"

#include <gtest/gtest.h>
#include <vector>

namespace tidewell::testing {
namespace {

using Kind = PathElement::Kind;

PathElement move(double x, double y) {
    return {Kind::moveTo, {x, y}, {}};
}
PathElement line(double x, double y) {
    return {Kind::lineTo, {x, y}, {}};
}
PathElement quad(double x, double y, double cx, double cy) {
    return {Kind::quadTo, {x, y}, {cx, cy}};
}
const PathElement closePath{Kind::close, {}, {}};

TEST(NotchMergeShape, PathFollowsTheFlaresSidesAndLowerCorners) {
    struct Rect {
        double minX, minY, width, height;
    };
    struct Case {
        const char* name;
        NotchMergeShape shape;
        Rect rect;
        std::vector<PathElement> expected;
    };
    const Case cases[] = {
        {"no radii: the plain rectangle",
         {0, 0},
         {10, 20, 100, 50},
         {move(10, 20), quad(10, 20, 10, 20), line(10, 70), quad(10, 70, 10, 70), line(110, 70),
          quad(110, 70, 110, 70), line(110, 20), quad(110, 20, 110, 20), closePath}},
        {"expanded shelf",
         {8, 18},
         {0, 0, 300, 120},
         {move(0, 0), quad(8, 8, 8, 0), line(8, 102), quad(26, 120, 8, 120), line(274, 120),
          quad(292, 102, 292, 120), line(292, 8), quad(300, 0, 292, 0), closePath}},
        {"radii larger than the rectangle stay unclamped",
         {0, 30},
         {0, 0, 40, 20},
         {move(0, 0), quad(0, 0, 0, 0), line(0, -10), quad(30, 20, 0, 20), line(10, 20),
          quad(40, -10, 40, 20), line(40, 0), quad(40, 0, 40, 0), closePath}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.shape.path(c.rect.minX, c.rect.minY, c.rect.width, c.rect.height), c.expected)
            << c.name;
    }
}

TEST(NotchMergeShape, InterpolatesBothRadiiLinearly) {
    const NotchMergeShape collapsed{8, 8};
    const NotchMergeShape expanded{8, 18};
    EXPECT_EQ(NotchMergeShape::interpolated(collapsed, expanded, 0.5), (NotchMergeShape{8, 13}));
    EXPECT_EQ(NotchMergeShape::interpolated(collapsed, expanded, 0), collapsed);
    EXPECT_EQ(NotchMergeShape::interpolated(collapsed, expanded, 1), expanded);
    EXPECT_EQ(NotchMergeShape::interpolated({0, 10}, {4, 0}, 0.25), (NotchMergeShape{1, 7.5}));
}

} // namespace
} // namespace tidewell::testing
