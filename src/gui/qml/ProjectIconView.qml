import QtQuick
import QtQuick.Window
import Qt5Compat.GraphicalEffects

// A project's icon: its image filling a rounded square, or its initials on its tint colour.
Item {
    id: icon

    property real size: 40
    property color tint
    property string initials
    property url imageSource // empty when the initials are drawn

    readonly property real radius: size * 0.24
    readonly property bool showsImage: image.status === Image.Ready

    width: size
    height: size

    Rectangle {
        id: silhouette
        anchors.fill: parent
        radius: icon.radius
        color: icon.tint
        visible: false
    }
    // Draws the tinted square with its shadow below it.
    DropShadow {
        anchors.fill: silhouette
        source: silhouette
        color: Qt.rgba(0, 0, 0, 0.18)
        radius: 5
        samples: 11
        verticalOffset: 2
        transparentBorder: true
    }
    Image {
        id: image
        anchors.fill: parent
        source: icon.imageSource
        fillMode: Image.PreserveAspectCrop
        sourceSize: Qt.size(Math.ceil(icon.size * Screen.devicePixelRatio),
                            Math.ceil(icon.size * Screen.devicePixelRatio))
        cache: false // a project's cached copy may be replaced under the same name
        visible: false
    }
    OpacityMask {
        anchors.fill: parent
        source: image
        maskSource: silhouette
        visible: icon.showsImage
    }
    Text {
        anchors.fill: parent
        anchors.margins: 5
        visible: !icon.showsImage
        text: icon.initials
        color: "white"
        font.pixelSize: Math.round(icon.size * 0.33)
        font.weight: Font.DemiBold
        fontSizeMode: Text.Fit
        minimumPixelSize: Math.round(icon.size * 0.33 * 0.65)
        maximumLineCount: 1
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    Rectangle {
        anchors.fill: parent
        radius: icon.radius
        color: "transparent"
        border.color: Qt.rgba(1, 1, 1, 0.18)
        border.width: 0.5
    }
}
