// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Glintboard.Editor
import Glintboard.UI

// Suggests a Shortcut that the user does not have yet.
Rectangle {
    id: suggested

    required property ShortcutsLibrary shortcuts
    required property string warnings

    implicitHeight: column.implicitHeight + 2 * Theme.Gap12
    radius: Theme.CardRadius
    color: Theme.surface
    border.width: 1 / Screen.devicePixelRatio
    border.color: Theme.stroke

    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Suggested")

    Rectangle {
        id: icon

        readonly property var colors: KeyArtwork.appearance("shortcut", "", "", "").gradient

        x: Theme.Gap12
        y: Theme.Gap12
        width: 40
        height: 40
        radius: 9
        gradient: Gradient {
            GradientStop {
                position: 0
                color: icon.colors[0]
            }
            GradientStop {
                position: 1
                color: icon.colors[1]
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

        x: Theme.Gap12 + 40 + Theme.Gap12
        y: Theme.Gap12
        width: parent.width - x - Theme.Gap12
        spacing: 2

        Text {
            text: qsTr("Suggested")
            font: Theme.fonts.ui(Theme.Caption2, Theme.Semibold)
            color: Theme.accent
        }
        Text {
            width: parent.width
            text: suggested.shortcuts.suggestedTitle
            font: Theme.fonts.ui(Theme.Subheadline, Theme.Semibold)
            color: Theme.text
            wrapMode: Text.WordWrap
        }
        Text {
            width: parent.width
            text: suggested.shortcuts.suggestedText
            font: Theme.fonts.ui(Theme.Footnote)
            color: Theme.secondaryText
            wrapMode: Text.WordWrap
        }
        Text {
            width: parent.width
            visible: suggested.warnings !== ""
            text: suggested.warnings
            font: Theme.fonts.ui(Theme.Footnote, Theme.Medium)
            color: Theme.warningText
            wrapMode: Text.WordWrap
        }
    }
}
