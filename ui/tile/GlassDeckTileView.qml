// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Glintboard.UI

// A key of a deck as a glass tile, with its caption below.
GlassTile {
    id: tile

    readonly property real captionGap: tile.faceSize * 0.09
    // Of everything but the caption.
    property real faceOpacity: 1

    implicitWidth: tile.faceSize
    implicitHeight: tile.faceSize + (tile.showsLabel ? tile.captionGap + caption.implicitHeight : 0)
    labelColor: Theme.text
    labelMutedColor: Theme.secondaryText

    Accessible.role: Accessible.Graphic
    Accessible.name: tile.displayLabel
    Accessible.description: tile.isMissing ? qsTr("Missing") : tile.isLaunching ? qsTr("Launching") : tile.isRunning ? qsTr("Running") : ""

    Item {
        id: body

        width: tile.faceSize
        height: tile.faceSize
        anchors.horizontalCenter: parent.horizontalCenter
        opacity: tile.faceOpacity
        scale: tile.isPressed && !Theme.reducedMotion ? 0.94 : 1

        Behavior on scale {
            ScaleAnimator {
                duration: tile.isPressed ? Theme.pressTime : Theme.releaseTime
                easing.type: Easing.OutCubic
            }
        }

        // The glow of a live key, and its outline.
        SoftShadow {
            anchors.fill: parent
            anchors.margins: -blur
            radius: tile.cornerRadius
            blur: tile.faceSize * 0.2
            color: Theme.accentVivid
            opacity: tile.isLive ? 1 : 0

            Rectangle {
                anchors.fill: parent
                anchors.margins: parent.blur - 3
                radius: tile.cornerRadius + 3
                color: "transparent"
                border.width: 2
                border.color: Theme.accentVivid
            }

            Behavior on opacity {
                OpacityAnimator {
                    duration: Theme.fadeTime
                }
            }
        }

        SoftShadow {
            anchors.fill: parent
            anchors.margins: -blur
            anchors.topMargin: fall - blur
            anchors.bottomMargin: -fall - blur
            radius: tile.cornerRadius
            blur: tile.faceSize * 0.18
            fall: tile.faceSize * 0.07
            color: Theme.dark ? Theme.shadow : Theme.faded(Theme.shadow, 2)
        }

        GlassFace {
            anchors.fill: parent
            radius: tile.cornerRadius
            upper: tile.showsIcon ? tile.iconAccent : tile.appearance.gradient[0] ?? Theme.inactive
            lower: tile.appearance.gradient[1] ?? Theme.inactive
            behindIcon: tile.showsIcon
            missing: tile.isMissing
        }

        GlassHighlight {
            anchors.fill: parent
            radius: tile.cornerRadius
            opacity: tile.isPressed ? 0.5 : 1

            Behavior on opacity {
                OpacityAnimator {
                    duration: tile.isPressed ? 90 : 160
                }
            }
        }

        TileGlyph {
            id: drawing

            anchors.centerIn: parent
            width: tile.glyphSize + 2 * drawing.margin
            height: drawing.width
            glyph: tile.shownGlyph
            icon: tile.macIcon
            missing: tile.isMissing
            opacity: tile.isLaunching || tile.didSucceed ? 0 : tile.isMissing ? 0.6 : 1

            Behavior on opacity {
                OpacityAnimator {
                    duration: Theme.fadeTime
                }
            }
        }

        // Dims the face during a launch.
        Rectangle {
            anchors.fill: parent
            radius: tile.cornerRadius
            color: "black"
            opacity: tile.isLaunching || tile.didSucceed ? 0.25 : 0

            Behavior on opacity {
                OpacityAnimator {
                    duration: Theme.fadeTime
                }
            }
        }

        GlassRim {
            anchors.fill: parent
            radius: tile.cornerRadius
            bandWidth: Math.max(1, tile.faceSize * 0.02)
            missing: tile.isMissing
        }

        Spinner {
            anchors.centerIn: parent
            size: tile.glyphSize * 0.9
            color: "white"
            delay: 0
            running: tile.isLaunching && !tile.didSucceed
        }

        // The check mark is revealed from left to right.
        Item {
            anchors.verticalCenter: parent.verticalCenter
            x: (parent.width - tile.glyphSize) / 2
            width: tile.didSucceed ? tile.glyphSize : 0
            height: tile.glyphSize
            clip: true

            Behavior on width {
                enabled: tile.didSucceed && !Theme.reducedMotion

                NumberAnimation {
                    duration: 200
                    easing.type: Easing.OutCubic
                }
            }

            Symbol {
                width: tile.glyphSize
                height: tile.glyphSize
                name: "checkmark"
                color: "white"
            }
        }

        // On a disc of its own, as a face without colour is nearly as bright as it.
        Rectangle {
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.margins: tile.faceSize * 0.05
            width: tile.faceSize * 0.34
            height: width
            radius: width / 2
            visible: tile.isMissing
            color: Theme.faded(Theme.darkGround, 0.8)

            Symbol {
                anchors.centerIn: parent
                anchors.verticalCenterOffset: -parent.height * 0.04
                name: "exclamationmark.triangle.fill"
                color: Theme.warning
                size: parent.width * 0.64
            }
        }

        Rectangle {
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.margins: tile.faceSize * 0.1
            width: tile.dotSize
            height: tile.dotSize
            radius: tile.dotSize / 2
            visible: tile.showsRunningDot && tile.isRunning && !tile.isMissing
            color: Theme.success

            // Separates the dot from a face of the same colour.
            Rectangle {
                anchors.fill: parent
                anchors.margins: -1.5
                z: -1
                radius: width / 2
                color: "#99000000"
            }
        }
    }

    Text {
        id: caption

        anchors.horizontalCenter: parent.horizontalCenter
        y: tile.faceSize + tile.captionGap
        width: Math.max(tile.width, tile.faceSize)
        visible: tile.showsLabel
        text: tile.displayLabel
        font: Theme.fonts.uiSized(tile.captionSize, tile.isRunning ? Theme.Semibold : Theme.Medium, false)
        color: tile.isRunning ? tile.labelColor : tile.labelMutedColor
        horizontalAlignment: Text.AlignHCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        Accessible.ignored: true
    }
}
