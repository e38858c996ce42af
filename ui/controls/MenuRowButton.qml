import QtQuick
import Glintboard.UI

// A command as a quiet row over the whole width.
GlintButton {
    id: control

    // What cannot be undone is written in the colour of danger.
    property bool destructive: false
    property string symbolName: ""
    // Shown at the end of the row; it is the caller who makes the keys work.
    property string shortcutText: ""
    readonly property color ink: control.destructive ? Look.dangerText : Look.text

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(implicitContentHeight + topPadding + bottomPadding, 32)
    leftPadding: Look.Gap8
    rightPadding: Look.Gap8
    topPadding: Look.Gap4
    bottomPadding: Look.Gap4
    font: Look.fonts.uiSized(14, Look.Medium)
    opacity: control.enabled ? 1 : 0.5

    contentItem: MenuRowLabel {
        text: control.text
        font: control.font
        color: control.ink
        symbolName: control.symbolName
        shortcutText: control.shortcutText
    }

    background: Rectangle {
        radius: Look.FieldRadius
        color: control.down ? Look.pressed : control.hovered && control.enabled ? Look.hover : "transparent"

        Behavior on color {
            ColorAnimation {
                duration: 90
            }
        }

        FocusRing {
            target: control
            anchors.margins: 0
            radius: Look.FieldRadius
        }
    }
}
