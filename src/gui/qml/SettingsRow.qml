import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

// One row of a card: a symbol and a title, the row's control at the trailing end, and an
// optional caption under it.
ColumnLayout {
    id: row

    property string title
    property string symbol
    property string caption
    default property alias control: trailing.data

    Layout.fillWidth: true
    spacing: 0

    SettingsStyle {
        id: style
    }
    RowLayout {
        Layout.fillWidth: true
        Layout.leftMargin: 14
        Layout.rightMargin: 14
        Layout.topMargin: 10
        Layout.bottomMargin: 10
        spacing: 8

        SymbolImage {
            name: row.symbol
            size: 15
            color: style.primary
        }
        Label {
            Layout.fillWidth: true
            text: row.title
            font.pointSize: style.points(13)
            color: style.primary
            elide: Text.ElideRight
        }
        RowLayout {
            id: trailing
        }
    }
    Label {
        Layout.fillWidth: true
        Layout.leftMargin: 14
        Layout.rightMargin: 14
        Layout.topMargin: -4
        Layout.bottomMargin: 8
        visible: row.caption !== ""
        text: row.caption
        font.pointSize: style.points(10.5)
        color: style.secondary
        horizontalAlignment: Text.AlignRight
        wrapMode: Text.Wrap
    }
}
