import QtQuick

Rectangle {
    color: "black"
}
