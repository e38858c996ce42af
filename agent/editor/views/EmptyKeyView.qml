// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// An empty slot of the phone. It shows that it accepts a key only during a drag.
Item {
    id: empty

    property bool isDropTarget: false
    property bool dragIsOn: false
    property real cornerRadius: 12

    Accessible.ignored: true

    Rectangle {
        anchors.fill: parent
        radius: empty.cornerRadius
        color: "white"
        opacity: 0.035
    }

    Item {
        anchors.fill: parent
        opacity: empty.dragIsOn ? empty.isDropTarget ? 1 : 0.55 : 0

        GlassRim {
            anchors.fill: parent
            radius: empty.cornerRadius
            bandWidth: 1
            missing: true
        }

        Symbol {
            anchors.centerIn: parent
            name: "plus"
            color: empty.isDropTarget ? Theme.accentVivid : "#73FFFFFF"
            size: parent.width * 0.26
        }

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.fadeTime
            }
        }
    }
}
