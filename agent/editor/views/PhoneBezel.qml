// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// The phone's body: a dark frame with a light edge, and the screen.
Item {
    id: bezel

    property bool glows: false
    property bool islandIsLive: false
    readonly property real frame: 9
    readonly property real screenRadius: Theme.PhoneRadius - bezel.frame
    default property alias content: screen.data

    SoftShadow {
        anchors.fill: parent
        anchors.margins: -blur
        anchors.topMargin: fall - blur
        anchors.bottomMargin: -fall - blur
        radius: Theme.PhoneRadius
        blur: 32
        fall: 14
        color: Theme.dark ? Theme.shadow : Theme.faded(Theme.shadow, 2)
    }

    SoftShadow {
        anchors.fill: parent
        anchors.margins: -blur
        radius: Theme.PhoneRadius
        blur: 28
        color: Theme.accentGlow(0.35)
        opacity: bezel.glows ? 1 : 0

        Behavior on opacity {
            OpacityAnimator {
                duration: Theme.fadeTime
            }
        }
    }

    // The frame. It has one colour, since the software renderer draws jagged corners on a gradient.
    Rectangle {
        anchors.fill: parent
        radius: Theme.PhoneRadius
        color: "#3A3138"
        border.width: 1
        border.color: "#7A6D77"
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: 2
        radius: Theme.PhoneRadius - 2
        color: "#0B080B"
    }

    Rectangle {
        id: screen

        anchors.fill: parent
        anchors.margins: bezel.frame
        radius: bezel.screenRadius
        gradient: Gradient {
            GradientStop {
                position: 0
                color: "#47182F"
            }
            GradientStop {
                position: 0.3
                color: "#281424"
            }
            GradientStop {
                position: 1
                color: "#150D17"
            }
        }
    }

    // The camera island.
    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        y: bezel.frame + 9
        width: Math.min(84, parent.width * 0.3)
        height: 22
        radius: 11
        color: "black"

        Rectangle {
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            width: 6
            height: 6
            radius: 3
            color: bezel.islandIsLive ? Theme.success : "#1C2233"
        }
    }

    // A soft reflection along the upper edge of the glass.
    Rectangle {
        anchors.fill: screen
        radius: bezel.screenRadius
        gradient: Gradient {
            GradientStop {
                position: 0
                color: "#1FFFFFFF"
            }
            GradientStop {
                position: 0.22
                color: "#05FFFFFF"
            }
            GradientStop {
                position: 0.23
                color: "#00FFFFFF"
            }
        }
    }

    // Covers the jagged corners of the screen's gradient.
    Rectangle {
        anchors.fill: screen
        anchors.margins: -1
        radius: bezel.screenRadius + 1
        color: "transparent"
        border.width: 2
        border.color: "#0B080B"
    }
}
