#include "core/shelf/NotchMergeShape.h"

#include <gtest/gtest.h>
#include <vector>

namespace tidewell::testing {
namespace {

TEST(NotchMergeShape, PathFollowsTheFlaresSidesAndLowerCorners) {
    using Kind = PathElement::Kind;
    const auto line = [](double x, double y) { return PathElement{Kind::lineTo, {x, y}, {}}; };
    const auto quad = [](double x, double y, double cx, double cy) {
        return PathElement{Kind::quadTo, {x, y}, {cx, cy}};
    };
    EXPECT_EQ((NotchMergeShape{8, 18}.path(0, 0, 300, 120)),
              (std::vector<PathElement>{{Kind::moveTo, {0, 0}, {}},
                                        quad(8, 8, 8, 0),
                                        line(8, 102),
                                        quad(26, 120, 8, 120),
                                        line(274, 120),
                                        quad(292, 102, 292, 120),
                                        line(292, 8),
                                        quad(300, 0, 292, 0),
                                        {Kind::close, {}, {}}}));
    EXPECT_EQ(NotchMergeShape::interpolated({8, 8}, {8, 18}, 0.5), (NotchMergeShape{8, 13}));
    EXPECT_EQ(NotchMergeShape::interpolated({0, 10}, {4, 0}, 0.25), (NotchMergeShape{1, 7.5}));
}

} // namespace
} // namespace tidewell::testing
