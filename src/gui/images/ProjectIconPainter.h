#pragma once

#include <QColor>
#include <QImage>
#include <QString>

class QPainter;
class QRectF;

namespace tidewell {

// What a project's icon face shows: its picture filling the rounded square, or when it has
// none its initials on its tint; and the thin light edge around it.
struct ProjectIconFace {
    QImage image;
    QColor tint;
    QString initials;
    bool hasEdge = true;
};

// The corner radius as a share of the side, alike wherever an icon is drawn.
inline constexpr qreal iconCornerShare = 0.24;

// Draws the face into the square, as the shelf's tiles and a dragged tile both show it.
void paintProjectIconFace(QPainter& painter, const QRectF& square, qreal radius,
                          const ProjectIconFace& face);

} // namespace tidewell
