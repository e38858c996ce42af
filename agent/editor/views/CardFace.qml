// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Glintboard.Editor
import Glintboard.UI

// The appearance of a library's card, in the grid and during a drag.
Rectangle {
    id: face

    property string label: ""
    property string subtitle: ""
    property string symbolName: ""
    property string iconSource: ""
    property color accent: Theme.accent
    property bool isInDeck: false
    property bool isFull: false
    property bool tinted: false
    readonly property bool cut: label.truncated

    radius: Theme.CardRadius
    color: Theme.surface
    border.width: 1 / Screen.devicePixelRatio
    border.color: Theme.stroke

    Rectangle {
        anchors.fill: parent
        radius: parent.radius
        color: face.accent
        opacity: face.tinted ? 0.12 : 0

        Behavior on opacity {
            OpacityAnimator {
                duration: 90
            }
        }
    }

    Image {
        id: icon

        x: Theme.Gap12
        y: Theme.Gap12
        width: 40
        height: 40
        visible: face.iconSource !== ""
        source: face.iconSource
        sourceSize.width: 40 * Screen.devicePixelRatio
        sourceSize.height: 40 * Screen.devicePixelRatio
        fillMode: Image.PreserveAspectFit
    }

    // Shown until the icon is loaded.
    Rectangle {
        x: Theme.Gap12
        y: Theme.Gap12
        width: 40
        height: 40
        radius: 9
        visible: !icon.visible
        color: face.symbolName === "" ? Theme.hover : Theme.faded(face.accent, 0.18)

        Symbol {
            anchors.centerIn: parent
            visible: face.symbolName !== ""
            name: face.symbolName
            color: Theme.text
            size: 22
        }

        Text {
            anchors.centerIn: parent
            visible: face.symbolName === ""
            text: KeyArtwork.letter(face.label)
            font: Theme.fonts.uiSized(18, Theme.Semibold, false)
            color: Theme.secondaryText
        }
    }

    Text {
        anchors.right: parent.right
        anchors.rightMargin: Theme.Gap12
        y: Theme.Gap12
        width: parent.width - icon.x - icon.width - Theme.Gap8 - Theme.Gap12
        visible: face.isInDeck
        text: qsTr("In deck")
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignRight
        font: Theme.fonts.ui(Theme.Caption2, Theme.Semibold)
        color: Theme.successText
    }

    Rectangle {
        anchors.right: parent.right
        anchors.rightMargin: Theme.Gap12
        anchors.verticalCenter: icon.verticalCenter
        width: 24
        height: 24
        radius: 12
        visible: !face.isInDeck
        color: face.tinted && !face.isFull ? Theme.accent : "transparent"
        opacity: face.isFull ? 0.35 : 1

        Symbol {
            anchors.centerIn: parent
            name: "plus"
            color: face.tinted && !face.isFull ? Theme.onAccent : Theme.secondaryText
            size: 12
        }
    }

    Text {
        id: label

        x: Theme.Gap12
        width: parent.width - 2 * Theme.Gap12
        anchors.bottom: face.subtitle === "" ? parent.bottom : below.top
        anchors.bottomMargin: face.subtitle === "" ? Theme.Gap12 : 0
        text: face.label
        font: Theme.fonts.ui(Theme.Footnote, Theme.Medium)
        color: Theme.text
        elide: Text.ElideRight
        textFormat: Text.PlainText
    }

    Text {
        id: below

        x: Theme.Gap12
        width: parent.width - 2 * Theme.Gap12
        // Two lines at most.
        height: 22 * Math.min(1.4, Theme.textScale)
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 4
        visible: face.subtitle !== ""
        text: face.subtitle
        font: Theme.fonts.ui(Theme.Caption2)
        color: Theme.secondaryText
        fontSizeMode: Text.Fit
        minimumPixelSize: 8
        wrapMode: Text.WordWrap
        textFormat: Text.PlainText
    }
}
