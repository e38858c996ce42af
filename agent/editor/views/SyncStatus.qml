// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// The text shows whether the deck is saved, the dot whether the phone has it.
Item {
    id: status

    required property string syncLabel
    required property bool syncIsLive
    required property bool isUnsaved

    implicitWidth: dot.width + Theme.Gap8 + label.implicitWidth
    implicitHeight: label.implicitHeight

    Accessible.role: Accessible.StaticText
    Accessible.name: status.syncLabel

    Rectangle {
        id: dot

        anchors.verticalCenter: parent.verticalCenter
        width: 8
        height: 8
        radius: 4
        color: status.syncIsLive ? Theme.success : status.isUnsaved ? Theme.warning : Theme.inactive

        // The glow of a deck that the connected phone shows.
        Rectangle {
            anchors.centerIn: parent
            width: 16
            height: 16
            radius: 8
            color: Theme.success
            opacity: status.syncIsLive ? 0.25 : 0

            Behavior on opacity {
                NumberAnimation {
                    duration: Theme.fadeTime
                }
            }
        }

        Behavior on color {
            ColorAnimation {
                duration: Theme.fadeTime
            }
        }
    }

    Text {
        id: label

        x: dot.width + Theme.Gap8
        text: status.syncLabel
        font: Theme.fonts.ui(Theme.Footnote, Theme.Medium)
        color: status.syncIsLive ? Theme.successText : status.isUnsaved ? Theme.warningText : Theme.secondaryText
        Accessible.ignored: true
    }
}
