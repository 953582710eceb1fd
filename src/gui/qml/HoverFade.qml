import QtQuick

// Hover colours fade in and out with the tiles' hover transition.
ColorAnimation {
    duration: shelf.hoverTransition.duration
    easing.type: Easing.BezierSpline
    easing.bezierCurve: shelf.hoverTransition.curve
}
