#include "gui/shelf/TileDragImage.h"

#include <gtest/gtest.h>

namespace tidewell {
namespace {

// The icon drawn at 48 points inside 6 points of margin (where only its shadow falls), at the
// screen's scale: the image, or when there is none the initials on the tint, fill the
// square from its edge on.
TEST(TileDragImage, DrawsTheIconAt48PointsWithItsMarginAtTheScreensScale) {
    QImage red(10, 20, QImage::Format_RGB32);
    red.fill(Qt::red);
    const QColor tint(0x3A, 0x7B, 0xD5);
    const struct {
        ProjectIconFace face;
        qreal scale;
        QColor inside;
    } cases[] = {{{QImage(), tint, "AB"}, 1, tint},
                 {{QImage(), tint, "a far too long set of initials"}, 2, tint},
                 {{red, tint, "AB"}, 2, Qt::red}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.face.initials.toStdString() + " at " + std::to_string(row.scale));
        const QImage drawn = tileDragImage(row.face, row.scale).toImage();
        ASSERT_EQ(drawn.size(), QSize(60, 60) * row.scale);
        const auto pixel = [&](qreal x, qreal y) {
            return drawn.pixelColor(QPointF(x * row.scale, y * row.scale).toPoint());
        };
        EXPECT_EQ(pixel(1, 1).alpha(), 0) << "the margin's corner is empty";
        EXPECT_NE(pixel(5, 30), row.inside) << "the icon begins 6 points in";
        EXPECT_EQ(pixel(7, 30), row.inside);
        EXPECT_EQ(pixel(52, 30), row.inside);
        EXPECT_NE(pixel(55, 30), row.inside) << "the icon is 48 points wide";
    }
}

} // namespace
} // namespace tidewell
