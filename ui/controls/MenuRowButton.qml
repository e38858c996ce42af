// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.UI

// A borderless button that fills the width of its row.
GlintButton {
    id: control

    // A command that cannot be undone has a red text.
    property bool destructive: false
    property string symbolName: ""
    // Shown at the end of the row. The user of this control binds the keys.
    property string shortcutText: ""
    readonly property color ink: control.destructive ? Theme.dangerText : Theme.text
    // Red on the neutral tint is hard to read: a destructive row is tinted with its own colour.
    readonly property color hoverTint: control.destructive ? Theme.faded(control.ink, Theme.hover.a) : Theme.hover
    readonly property color pressedTint: control.destructive ? Theme.faded(control.ink, Theme.pressed.a) : Theme.pressed

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(implicitContentHeight + topPadding + bottomPadding, 32)
    leftPadding: Theme.Gap8
    rightPadding: Theme.Gap8
    topPadding: Theme.Gap4
    bottomPadding: Theme.Gap4
    font: Theme.fonts.uiSized(14, Theme.Medium)
    opacity: control.enabled ? 1 : 0.5

    contentItem: MenuRowLabel {
        text: control.text
        font: control.font
        color: control.ink
        symbolName: control.symbolName
        shortcutText: control.shortcutText
    }

    background: Rectangle {
        radius: Theme.FieldRadius
        color: control.down ? control.pressedTint : control.hovered && control.enabled ? control.hoverTint : "transparent"

        Behavior on color {
            ColorAnimation {
                duration: 90
            }
        }

        FocusRing {
            target: control
            anchors.margins: 0
            radius: Theme.FieldRadius
        }
    }
}
