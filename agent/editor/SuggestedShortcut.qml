import QtQuick
import QtQuick.Window
import Glintboard.Editor
import Glintboard.UI

// A Shortcut worth making, until it is there.
Rectangle {
    id: suggested

    required property ShortcutsLibrary shortcuts
    required property string warnings

    implicitHeight: column.implicitHeight + 2 * Look.Gap12
    radius: Look.CardRadius
    color: Look.surface
    border.width: 1 / Screen.devicePixelRatio
    border.color: Look.stroke

    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Suggested")

    Rectangle {
        x: Look.Gap12
        y: Look.Gap12
        width: 40
        height: 40
        radius: 9
        gradient: Gradient {
            GradientStop {
                position: 0
                color: "#FA8C33"
            }
            GradientStop {
                position: 1
                color: "#EB4759"
            }
        }

        Symbol {
            anchors.centerIn: parent
            name: suggested.shortcuts.suggestedSymbolName
            color: "white"
            size: 22
        }
    }

    Column {
        id: column

        x: Look.Gap12 + 40 + Look.Gap12
        y: Look.Gap12
        width: parent.width - x - Look.Gap12
        spacing: 2

        Text {
            text: qsTr("Suggested")
            font: Look.fonts.ui(Look.Caption2, Look.Semibold)
            color: Look.accent
        }
        Text {
            width: parent.width
            text: suggested.shortcuts.suggestedTitle
            font: Look.fonts.ui(Look.Subheadline, Look.Semibold)
            color: Look.text
            wrapMode: Text.WordWrap
        }
        Text {
            width: parent.width
            text: suggested.shortcuts.suggestedText
            font: Look.fonts.ui(Look.Footnote)
            color: Look.secondaryText
            wrapMode: Text.WordWrap
        }
        Text {
            width: parent.width
            visible: suggested.warnings !== ""
            text: suggested.warnings
            font: Look.fonts.ui(Look.Footnote, Look.Medium)
            color: Look.warningText
            wrapMode: Text.WordWrap
        }
    }
}
