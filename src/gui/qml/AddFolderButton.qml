import QtQuick
import QtQuick.Controls

// "Add folder": lets the user choose a folder to pin.
Button {
    text: "Add folder"
    icon.source: "image://symbol/folder.badge.plus/000000"
    icon.color: palette.buttonText
    icon.width: 16
    icon.height: 16
    onClicked: settings.chooseNewFolder()
}
