// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.UI

// Says that something is under way.
Item {
    id: spinner

    property color color: Theme.secondaryText
    property real size: 20
    property bool running: true

    implicitWidth: spinner.size
    implicitHeight: spinner.size
    opacity: spinner.running ? 1 : 0
    visible: spinner.opacity > 0

    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("In progress")

    SpinnerArc {
        id: arc

        readonly property bool turning: spinner.running && spinner.visible
        // The software renderer turns items without smoothing them: there it is painted anew.
        readonly property bool inSoftware: GraphicsInfo.api === GraphicsInfo.Software

        anchors.fill: parent
        color: spinner.color

        RotationAnimator on rotation {
            running: arc.turning && !arc.inSoftware
            loops: Animation.Infinite
            from: 0
            to: 360
            duration: 900
        }

        NumberAnimation on turn {
            running: arc.turning && arc.inSoftware
            loops: Animation.Infinite
            from: 0
            to: 360
            duration: 900
        }
    }

    Behavior on opacity {
        NumberAnimation {
            duration: Theme.fadeTime
        }
    }
}
