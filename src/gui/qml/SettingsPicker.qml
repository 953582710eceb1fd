import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

// A menu of a preference's cases by their names. Its label is only for assistive
// technology: the row's title says what it picks.
ComboBox {
    property string label

    Layout.preferredWidth: 140
    Accessible.name: label
}
