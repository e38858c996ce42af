import QtQuick
import Glintboard.UI

// Says that something is under way.
Item {
    id: spinner

    property color color: Look.secondaryText
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

        anchors.fill: parent
        color: spinner.color

        RotationAnimator on rotation {
            running: spinner.running && spinner.visible
            loops: Animation.Infinite
            from: 0
            to: 360
            duration: 900
        }
    }

    Behavior on opacity {
        NumberAnimation {
            duration: Look.fadeTime
        }
    }
}
