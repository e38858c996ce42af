import QtQuick
import QtQuick.Window
import Glintboard.UI

// Hosts content that wobbles while it is active, on the render thread.
Item {
    id: host

    // Whether the content wobbles, and the seed that makes it differ from its neighbours.
    property bool isActive: false
    property int seed: 0
    // How far the content draws beyond itself, as a shadow does.
    property real overhang: 16
    default property alias content: body.data

    function update() {
        view.seed = host.seed;
        view.setActive(host.isActive);
    }

    implicitWidth: body.childrenRect.width
    implicitHeight: body.childrenRect.height

    onIsActiveChanged: host.update()
    onSeedChanged: host.update()
    Component.onCompleted: host.update()

    SpringBoardJiggleNSView {
        id: view

        anchors.fill: parent
        hasRotation: rotation.running

        onStartAnimations: (angle, rotationTime, height, bounceTime) => {
            settle.stop();
            rotation.angle = angle;
            rotation.time = rotationTime;
            bounce.height = height;
            bounce.time = bounceTime;
            rotation.restart();
            bounce.restart();
        }
        onStopAnimations: settleTime => {
            rotation.stop();
            bounce.stop();
            settle.stop();
            if (settleTime > 0) {
                settle.time = settleTime;
                settle.start();
            } else {
                mover.rotation = 0;
                mover.y = -host.overhang;
            }
        }

        Item {
            id: mover

            x: -host.overhang
            y: -host.overhang
            width: host.width + 2 * host.overhang
            height: host.height + 2 * host.overhang
            // Drawn once and turned as a whole, which keeps its edges smooth. The software renderer
            // draws layers only where a point is a pixel.
            layer.enabled: (rotation.running || settle.running) && (GraphicsInfo.api !== GraphicsInfo.Software || Screen.devicePixelRatio === 1)
            layer.smooth: true

            Item {
                id: body

                x: host.overhang
                y: host.overhang
                width: host.width
                height: host.height
            }
        }
    }

    SequentialAnimation {
        id: rotation

        property real angle: 0
        property int time: 0

        loops: Animation.Infinite

        RotationAnimator {
            target: mover
            from: -rotation.angle
            to: rotation.angle
            duration: rotation.time
        }
        RotationAnimator {
            target: mover
            from: rotation.angle
            to: -rotation.angle
            duration: rotation.time
        }
    }

    SequentialAnimation {
        id: bounce

        property real height: 0
        property int time: 0

        loops: Animation.Infinite

        YAnimator {
            target: mover
            from: -host.overhang - bounce.height
            to: -host.overhang
            duration: bounce.time
        }
        YAnimator {
            target: mover
            from: -host.overhang
            to: -host.overhang - bounce.height
            duration: bounce.time
        }
    }

    ParallelAnimation {
        id: settle

        property int time: 0

        RotationAnimator {
            target: mover
            to: 0
            duration: settle.time
            easing.type: Easing.OutCubic
        }
        YAnimator {
            target: mover
            to: -host.overhang
            duration: settle.time
            easing.type: Easing.OutCubic
        }
    }
}
