import QtQuick
import Glintboard.UI

// What a PillButton says: a symbol, a text, or the spinner in their place.
Item {
    id: label

    property alias text: title.text
    property alias font: title.font
    property color color: Look.text
    property string symbolName: ""
    property bool busy: false

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight

    Row {
        id: row

        anchors.centerIn: parent
        spacing: Look.Gap8
        opacity: label.busy ? 0 : 1

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: label.symbolName !== ""
            name: label.symbolName
            color: label.color
            size: 16
        }

        Text {
            id: title

            anchors.verticalCenter: parent.verticalCenter
            color: label.color
            textFormat: Text.PlainText
        }
    }

    Spinner {
        anchors.centerIn: parent
        color: label.color
        size: 18
        running: label.busy
    }
}
