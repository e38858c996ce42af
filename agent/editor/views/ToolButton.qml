// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// A small button with a symbol, and its text as a tool tip.
GlintButton {
    id: control

    required property string symbolName
    // The keyboard shortcut, shown in the tool tip.
    property string keys: ""

    implicitWidth: 32
    implicitHeight: 32
    opacity: control.enabled ? 1 : 0.35

    Accessible.description: control.keys

    HelpText {
        target: control
        text: control.keys === "" ? control.text : control.text + "  " + control.keys
    }

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: control.symbolName
            color: Theme.text
            size: 16
        }
    }

    background: Rectangle {
        radius: height / 2
        color: control.down ? Theme.pressed : control.hovered && control.enabled ? Theme.hover : "transparent"

        FocusRing {
            target: control
            anchors.margins: 0
            radius: parent.radius
        }
    }
}
