import QtQuick
import Glintboard.Editor
import Glintboard.UI

// What went wrong, or what has been done. Its room opens and closes slowly, so that nothing jumps.
Item {
    id: line

    required property string message
    property bool isError: false
    // The last one stays to be read while its room closes.
    property string shown: ""

    onMessageChanged: if (line.message !== "") line.shown = line.message
    Component.onCompleted: line.shown = line.message

    height: line.message === "" ? 0 : text.implicitHeight + Look.Gap8
    visible: line.height > 0
    opacity: line.message === "" ? 0 : 1
    clip: true

    Behavior on height {
        NumberAnimation {
            duration: Look.moveTime
            easing.type: Easing.OutCubic
        }
    }
    Behavior on opacity {
        NumberAnimation {
            duration: Look.fadeTime
        }
    }

    Accessible.role: Accessible.AlertMessage
    Accessible.name: line.message

    Symbol {
        id: symbol

        y: Look.Gap4 + 1
        name: line.isError ? "exclamationmark.triangle.fill" : "info.circle.fill"
        color: text.color
        size: Look.symbolSize
    }

    Text {
        id: text

        x: symbol.width + Look.Gap8
        y: Look.Gap4
        width: parent.width - x
        text: line.shown
        font: Look.fonts.ui(Look.Footnote, Look.Medium)
        color: line.isError ? Look.dangerText : Look.secondaryText
        wrapMode: Text.WordWrap
        textFormat: Text.PlainText
        Accessible.ignored: true
    }
}
