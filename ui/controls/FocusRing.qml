// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Glintboard.UI

// A ring in the accent around the control with the keyboard focus: two pixels wide, with a gap of
// two. It is a child of the control: `FocusRing { target: control; cornerRadius: 8 }`.
Rectangle {
    id: ring

    required property T.Control target
    property bool shown: ring.target.visualFocus
    property real cornerRadius: Theme.FieldRadius

    anchors.fill: parent
    anchors.margins: -4
    radius: ring.cornerRadius + 4
    color: "transparent"
    border.width: 2
    border.color: Theme.accent
    opacity: ring.shown ? 1 : 0

    Behavior on opacity {
        NumberAnimation {
            duration: 90
        }
    }
}
