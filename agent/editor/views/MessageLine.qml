// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// An error or a note. Its height is animated.
Item {
    id: line

    required property string message
    property bool isError: false
    // Keeps the last text visible while the line collapses.
    property string shown: ""

    onMessageChanged: if (line.message !== "") line.shown = line.message
    Component.onCompleted: line.shown = line.message

    height: line.message === "" ? 0 : text.implicitHeight + Theme.Gap8
    visible: line.height > 0
    opacity: line.message === "" ? 0 : 1
    clip: true

    Behavior on height {
        NumberAnimation {
            duration: Theme.moveTime
            easing.type: Easing.OutCubic
        }
    }
    Behavior on opacity {
        NumberAnimation {
            duration: Theme.fadeTime
        }
    }

    Accessible.role: Accessible.AlertMessage
    Accessible.name: line.message

    Symbol {
        id: symbol

        y: Theme.Gap4 + 1
        name: line.isError ? "exclamationmark.triangle.fill" : "info.circle.fill"
        color: text.color
        size: Theme.symbolSize
    }

    Text {
        id: text

        x: symbol.width + Theme.Gap8
        y: Theme.Gap4
        width: parent.width - x
        text: line.shown
        font: Theme.fonts.ui(Theme.Footnote, Theme.Medium)
        color: line.isError ? Theme.dangerText : Theme.secondaryText
        wrapMode: Text.WordWrap
        textFormat: Text.PlainText
        Accessible.ignored: true
    }
}
