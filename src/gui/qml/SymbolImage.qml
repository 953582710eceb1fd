import QtQuick
import QtQuick.Window

// One of our symbols, square, in any colour; the colour's alpha becomes the image's opacity,
// so an alpha fade does not redraw the symbol.
Image {
    id: symbol

    property string name
    property color color: "white"
    property real size: 16

    width: size
    height: size
    sourceSize: Qt.size(Math.ceil(size * Screen.devicePixelRatio),
                        Math.ceil(size * Screen.devicePixelRatio))
    source: "image://symbol/" + name + "/" + Qt.rgba(color.r, color.g, color.b, 1).toString().slice(1)
    opacity: color.a
}
