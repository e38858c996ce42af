import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Glintboard.UI

// Explains a control to whoever rests the pointer on it: `HelpText { target: button; text: "…" }`.
T.ToolTip {
    id: tip

    required property T.Control target

    visible: tip.target.hovered && tip.text !== ""
    delay: 700
    x: tip.parent ? (tip.parent.width - tip.implicitWidth) / 2 : 0
    y: -tip.implicitHeight - Look.Gap4
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: Look.Gap8
    verticalPadding: Look.Gap4
    margins: Look.Gap4
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    contentItem: Text {
        text: tip.text
        font: Look.fonts.ui(Look.Caption)
        color: Look.text
        textFormat: Text.PlainText
    }

    background: Rectangle {
        radius: Look.FieldRadius
        color: Look.solidSurface
        border.width: 1 / Screen.devicePixelRatio
        border.color: Look.stroke
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Look.fadeTime
        }
    }
}
