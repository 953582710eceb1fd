import QtQuick
import QtQuick.Window
import Tidewell

// A project's icon: its image filling a rounded square, or its initials on its tint colour.
// The face is one drawn picture; the project's own picture, when it has one, lies over it.
Item {
    id: icon

    property real size: 40
    property color tint
    property string initials
    property url imageSource // empty when the initials are drawn

    readonly property real cornerShare: 0.24
    readonly property real radius: size * cornerShare
    readonly property bool showsImage: picture.item !== null && picture.item.status === Image.Ready

    width: size
    height: size

    // The tinted square with its shadow below it; a picture covers the square.
    DrawnProjectIcon {
        anchors.fill: parent
        tint: icon.tint
        initials: icon.showsImage ? "" : icon.initials
        cornerShare: icon.cornerShare
        hasEdge: !icon.showsImage
    }
    // Made only for a project with a picture: most show their initials.
    Loader {
        id: picture
        anchors.fill: parent
        active: icon.imageSource.toString() !== ""
        sourceComponent: Image {
            source: "image://rounded/" + icon.cornerShare + "/" + icon.imageSource
            sourceSize: Qt.size(Math.ceil(icon.size * Screen.devicePixelRatio),
                                Math.ceil(icon.size * Screen.devicePixelRatio))
            cache: false // a project's cached copy may be replaced under the same name
            visible: icon.showsImage

            Rectangle {
                anchors.fill: parent
                radius: icon.radius
                color: "transparent"
                border.color: Qt.rgba(1, 1, 1, 0.18)
                border.width: 0.5
            }
        }
    }
}
