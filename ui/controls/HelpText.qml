// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Glintboard.UI

// A tool tip: `HelpText { target: button; text: "…" }`.
T.ToolTip {
    id: tip

    required property T.Control target

    visible: tip.target.hovered && tip.text !== ""
    delay: 700
    x: tip.parent ? (tip.parent.width - tip.implicitWidth) / 2 : 0
    y: -tip.implicitHeight - Theme.Gap4
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: Theme.Gap8
    verticalPadding: Theme.Gap4
    margins: Theme.Gap4
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    contentItem: Text {
        text: tip.text
        font: Theme.fonts.ui(Theme.Caption)
        color: Theme.text
        textFormat: Text.PlainText
    }

    background: Rectangle {
        radius: Theme.FieldRadius
        color: Theme.solidSurface
        border.width: 1 / Screen.devicePixelRatio
        border.color: Theme.stroke
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.fadeTime
        }
    }
}
