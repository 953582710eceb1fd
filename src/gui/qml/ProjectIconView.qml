import QtQuick
import QtQuick.Window
import Tidewell
import "TypeSize.js" as TypeSize

// A project's icon: its image filling a rounded square, or its initials on its tint colour.
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
    SoftShadow {
        anchors.fill: parent
        anchors.margins: -margin
        color: Qt.rgba(0, 0, 0, 0.18)
        blur: 5
        offset: Qt.point(0, 2)
        cornerRadius: icon.radius
    }
    Rectangle {
        anchors.fill: parent
        radius: icon.radius
        color: icon.tint
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
        }
    }
    // The initials at a third of the icon's size, shrunk to fit between the paddings down to
    // 0.65 of that; what still does not fit is cut off at the icon's edges.
    Text {
        readonly property real fullSize: icon.size * 0.33
        readonly property real fit: (width - leftPadding - rightPadding) / natural.advanceWidth

        anchors.fill: parent
        padding: 5
        clip: true
        visible: !icon.showsImage
        text: icon.initials
        color: "white"
        font.pointSize: TypeSize.points(fullSize * Math.max(0.65, Math.min(1, fit)))
        font.weight: Font.DemiBold
        maximumLineCount: 1
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter

        TextMetrics {
            id: natural
            text: icon.initials
            font.pointSize: TypeSize.points(parent.fullSize)
            font.weight: Font.DemiBold
        }
    }
    Rectangle {
        anchors.fill: parent
        radius: icon.radius
        color: "transparent"
        border.color: Qt.rgba(1, 1, 1, 0.18)
        border.width: 0.5
    }
}
