import QtQuick
import Glintboard.Editor
import Glintboard.UI

// What a library says while it has no cards to show, and what can be done about it.
Column {
    id: empty

    property string title: ""
    property string text: ""
    property string symbolName: ""
    property bool isError: false
    default property alias buttons: row.data

    spacing: Look.Gap8

    Symbol {
        anchors.horizontalCenter: parent.horizontalCenter
        visible: empty.symbolName !== ""
        name: empty.symbolName
        color: empty.isError ? Look.dangerText : Look.accent
        size: 32
    }
    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(implicitWidth, empty.width)
        text: empty.title
        font: Look.fonts.hero(Look.Title2, Look.Semibold)
        color: Look.text
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignHCenter
    }
    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(implicitWidth, empty.width, 420)
        visible: empty.text !== ""
        text: empty.text
        font: Look.fonts.ui(Look.Subheadline)
        color: Look.secondaryText
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignHCenter
        textFormat: Text.PlainText
    }
    Item {
        width: 1
        height: Look.Gap4
        visible: row.children.length > 0
    }
    Row {
        id: row

        anchors.horizontalCenter: parent.horizontalCenter
        spacing: Look.Gap8
    }
}
