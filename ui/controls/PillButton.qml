// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Glintboard.UI

// A pill-shaped button. The primary kind is filled with the accent. A busy one shows a spinner.
GlintButton {
    id: control

    enum Kind {
        Primary,
        Secondary
    }

    property int kind: PillButton.Kind.Secondary
    readonly property bool primary: control.kind === PillButton.Kind.Primary
    readonly property color ink: control.primary ? Theme.onAccent : Theme.text
    // A symbol before the text.
    property string symbolName: ""

    implicitWidth: Math.max(implicitContentWidth + leftPadding + rightPadding, 64)
    implicitHeight: Math.max(implicitContentHeight + topPadding + bottomPadding, 32)
    leftPadding: Theme.Gap16
    rightPadding: Theme.Gap16
    topPadding: Theme.Gap4
    bottomPadding: Theme.Gap4
    font: Theme.fonts.uiSized(14, Theme.Semibold)
    opacity: control.enabled ? 1 : 0.5
    scale: control.down && !Theme.reducedMotion ? 0.97 : 1

    contentItem: PillLabel {
        text: control.text
        font: control.font
        color: control.ink
        symbolName: control.symbolName
        busy: control.busy
    }

    background: Rectangle {
        radius: height / 2
        color: control.primary ? Theme.accent : Theme.surface
        border.width: control.primary ? 0 : 1 / Screen.devicePixelRatio
        border.color: Theme.stroke

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: control.primary ? Theme.onAccent : Theme.text
            opacity: control.down ? 0.16 : control.hovered && control.enabled ? 0.08 : 0

            Behavior on opacity {
                NumberAnimation {
                    duration: 90
                }
            }
        }

        FocusRing {
            target: control
            cornerRadius: parent.radius
        }
    }

    Behavior on scale {
        ScaleAnimator {
            duration: control.down ? Theme.pressTime : Theme.releaseTime
            easing.type: Easing.OutCubic
        }
    }

    MouseArea {
        anchors.fill: parent
        enabled: control.busy
    }
}
