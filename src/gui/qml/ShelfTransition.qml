import QtQuick

// A size or fade change animated with one of the shelf's transitions, as the bridge
// publishes them: {curve: [x1, y1, x2, y2, 1, 1], duration: ms}.
NumberAnimation {
    property var transition: shelf.sizeTransition

    duration: transition.duration
    easing.type: Easing.BezierSpline
    easing.bezierCurve: transition.curve
}
