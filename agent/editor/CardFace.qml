import QtQuick
import QtQuick.Window
import Glintboard.Editor
import Glintboard.UI

// How a card of a library looks, in its place and while it is dragged.
Rectangle {
    id: face

    property string label: ""
    property string subtitle: ""
    property string symbolName: ""
    property string iconSource: ""
    property color accent: Look.accent
    property bool isInDeck: false
    property bool isFull: false
    property bool tinted: false
    readonly property bool cut: label.truncated

    radius: Look.CardRadius
    color: Look.surface
    border.width: 1 / Screen.devicePixelRatio
    border.color: Look.stroke

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

        x: Look.Gap12
        y: Look.Gap12
        width: 40
        height: 40
        visible: face.iconSource !== ""
        source: face.iconSource
        sourceSize.width: 40 * Screen.devicePixelRatio
        sourceSize.height: 40 * Screen.devicePixelRatio
        fillMode: Image.PreserveAspectFit
    }

    // In the icon's place until it comes.
    Rectangle {
        x: Look.Gap12
        y: Look.Gap12
        width: 40
        height: 40
        radius: 9
        visible: !icon.visible
        color: face.symbolName === "" ? Look.hover : Look.faded(face.accent, 0.18)

        Symbol {
            anchors.centerIn: parent
            visible: face.symbolName !== ""
            name: face.symbolName
            color: Look.text
            size: 22
        }

        Text {
            anchors.centerIn: parent
            visible: face.symbolName === ""
            text: KeyLooks.letter(face.label)
            font: Look.fonts.uiSized(18, Look.Semibold, false)
            color: Look.secondaryText
        }
    }

    Text {
        anchors.right: parent.right
        anchors.rightMargin: Look.Gap12
        y: Look.Gap12
        width: parent.width - icon.x - icon.width - Look.Gap8 - Look.Gap12
        visible: face.isInDeck
        text: qsTr("In deck")
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignRight
        font: Look.fonts.ui(Look.Caption2, Look.Semibold)
        color: Look.successText
    }

    Rectangle {
        anchors.right: parent.right
        anchors.rightMargin: Look.Gap12
        anchors.verticalCenter: icon.verticalCenter
        width: 24
        height: 24
        radius: 12
        visible: !face.isInDeck
        color: face.tinted && !face.isFull ? Look.accent : "transparent"
        opacity: face.isFull ? 0.35 : 1

        Symbol {
            anchors.centerIn: parent
            name: "plus"
            color: face.tinted && !face.isFull ? Look.onAccent : Look.secondaryText
            size: 12
        }
    }

    Text {
        id: label

        x: Look.Gap12
        width: parent.width - 2 * Look.Gap12
        anchors.bottom: face.subtitle === "" ? parent.bottom : below.top
        anchors.bottomMargin: face.subtitle === "" ? Look.Gap12 : 0
        text: face.label
        font: Look.fonts.ui(Look.Footnote, Look.Medium)
        color: Look.text
        elide: Text.ElideRight
        textFormat: Text.PlainText
    }

    Text {
        id: below

        x: Look.Gap12
        width: parent.width - 2 * Look.Gap12
        // Two lines of it, since it is no name of the user's.
        height: 22 * Math.min(1.4, Look.textScale)
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 4
        visible: face.subtitle !== ""
        text: face.subtitle
        font: Look.fonts.ui(Look.Caption2)
        color: Look.secondaryText
        fontSizeMode: Text.Fit
        minimumPixelSize: 8
        wrapMode: Text.WordWrap
        textFormat: Text.PlainText
    }
}
