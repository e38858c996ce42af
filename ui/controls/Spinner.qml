// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.UI

// Says that something is under way, once that has taken long enough to be worth a sign. Under reduced
// motion it fades instead of turning.
Item {
    id: spinner

    property color color: Theme.secondaryText
    property real size: 20
    property bool running: true
    // Milliseconds of running before it shows.
    property int delay: 300
    readonly property bool shown: spinner.running && wait.isOver

    implicitWidth: spinner.size
    implicitHeight: spinner.size
    opacity: spinner.shown ? 1 : 0
    visible: spinner.opacity > 0
    onRunningChanged: wait.isOver = false

    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("In progress")

    Timer {
        id: wait

        property bool isOver: false

        interval: spinner.delay
        running: spinner.running
        onTriggered: wait.isOver = true
    }

    SpinnerArc {
        id: arc

        readonly property bool turning: spinner.shown && !Theme.reducedMotion
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

        SequentialAnimation on opacity {
            running: spinner.shown && Theme.reducedMotion
            loops: Animation.Infinite
            onStopped: arc.opacity = 1

            NumberAnimation {
                to: 0.3
                duration: 700
            }
            NumberAnimation {
                to: 1
                duration: 700
            }
        }
    }

    Behavior on opacity {
        NumberAnimation {
            duration: Theme.fadeTime
        }
    }
}
