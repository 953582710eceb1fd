#pragma once

namespace tidewell {

// Lengths are points. The origin is the bottom-left corner of the primary display and y
// grows upwards, so a display's top edge is its frame's maxY.
struct Point {
    double x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;
    bool operator==(const Size&) const = default;
};

struct Rect {
    Point origin;
    Size size;

    double minX() const { return origin.x; }
    double maxX() const { return origin.x + size.width; }
    double minY() const { return origin.y; }
    double maxY() const { return origin.y + size.height; }
    double width() const { return size.width; }
    double height() const { return size.height; }
    bool isEmpty() const { return size.width <= 0 || size.height <= 0; }
    // The minimum edges belong to the rectangle, the maximum edges do not.
    bool contains(const Point& point) const {
        return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
    }
    // Grown by `dx` on the left and right and by `dy` at the bottom and top.
    Rect grown(double dx, double dy) const {
        return {{minX() - dx, minY() - dy}, {width() + 2 * dx, height() + 2 * dy}};
    }
    bool operator==(const Rect&) const = default;
};

} // namespace tidewell
