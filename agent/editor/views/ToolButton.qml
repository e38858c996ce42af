// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// A small button that shows a symbol and says what it does to whoever rests on it.
GlintButton {
    id: control

    required property string symbolName
    // Part of the tip alone: the keys that do the same.
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
