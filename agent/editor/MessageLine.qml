import QtQuick
import Glintboard.Editor
import Glintboard.UI

// What went wrong, or what has been done. Its room is kept, so that nothing jumps.
Item {
    id: line

    required property string message
    property bool isError: false

    implicitHeight: line.message === "" ? 0 : text.implicitHeight + Look.Gap8
    visible: line.message !== ""

    Accessible.role: Accessible.AlertMessage
    Accessible.name: line.message

    Symbol {
        id: symbol

        y: Look.Gap4 + 1
        name: line.isError ? "exclamationmark.triangle.fill" : "info.circle.fill"
        color: text.color
        size: 16
    }

    Text {
        id: text

        x: symbol.width + Look.Gap8
        y: Look.Gap4
        width: parent.width - x
        text: line.message
        font: Look.fonts.ui(Look.Footnote, Look.Medium)
        color: line.isError ? Look.dangerText : Look.secondaryText
        wrapMode: Text.WordWrap
        textFormat: Text.PlainText
        Accessible.ignored: true
    }
}
