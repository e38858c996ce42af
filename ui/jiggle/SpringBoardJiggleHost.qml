// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.UI

// Hosts content that wobbles while it is active, on the render thread.
Item {
    id: host

    // Whether the content wobbles. The seed varies the motion between neighbours.
    property bool isActive: false
    property int seed: 0
    // How far the content draws outside its bounds, such as a shadow.
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
            // Whole pixels, since a fractional offset would show seams.
            width: Math.ceil(host.width + 2 * host.overhang)
            height: Math.ceil(host.height + 2 * host.overhang)

            Item {
                id: still

                anchors.fill: parent

                Item {
                    id: body

                    x: host.overhang
                    y: host.overhang
                    width: host.width
                    height: host.height
                }
            }

            // Rendered once to a texture, whose rotation keeps edges smooth.
            ShaderEffectSource {
                id: picture

                readonly property bool isShown: rotation.running || settle.running
                // The software renderer loses a picture that it mirrors, except where a pixel is a
                // point: so it lies upside down, and is turned over here.
                readonly property bool isUpsideDown: GraphicsInfo.api === GraphicsInfo.Software

                anchors.fill: parent
                visible: picture.isShown
                sourceItem: picture.isShown ? still : null
                hideSource: true
                smooth: true
                textureMirroring: picture.isUpsideDown ? ShaderEffectSource.NoMirroring : ShaderEffectSource.MirrorVertically
                transform: Scale {
                    yScale: picture.isUpsideDown ? -1 : 1
                    origin.y: picture.height / 2
                }
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
