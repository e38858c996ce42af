// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.UI

// The button that removes a key, by its `action` or `onClicked`.
GlintButton {
    id: badge

    readonly property string explanation: qsTr("Remove key")

    implicitWidth: 22
    implicitHeight: 22
    scale: badge.down && !Theme.reducedMotion ? 0.9 : 1

    Accessible.name: badge.explanation

    HelpText {
        objectName: "helpText"
        target: badge
        text: badge.explanation
    }

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: "minus"
            color: Qt.rgba(0.18, 0.18, 0.18, 1)
            size: 13
        }
    }

    background: Item {
        SoftShadow {
            anchors.centerIn: parent
            anchors.verticalCenterOffset: fall
            width: 18 + 2 * blur
            height: 18 + 2 * blur
            radius: 9
            blur: 4
            fall: 1
            color: Qt.rgba(0, 0, 0, 0.35)
        }

        Rectangle {
            anchors.centerIn: parent
            width: 18
            height: 18
            radius: 9
            color: badge.hovered ? Qt.rgba(0.62, 0.62, 0.62, 1) : Qt.rgba(0.52, 0.52, 0.52, 1)

            FocusRing {
                target: badge
                cornerRadius: 9
            }
        }
    }

    Behavior on scale {
        ScaleAnimator {
            duration: Theme.pressTime
        }
    }
}
