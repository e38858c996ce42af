// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// A library's message and action while it has no cards.
Column {
    id: empty

    property string title: ""
    property string text: ""
    property string symbolName: ""
    property bool isError: false
    default property alias buttons: row.data

    spacing: Theme.Gap8

    Symbol {
        anchors.horizontalCenter: parent.horizontalCenter
        visible: empty.symbolName !== ""
        name: empty.symbolName
        color: empty.isError ? Theme.dangerText : Theme.accent
        size: 32
    }
    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(implicitWidth, empty.width)
        text: empty.title
        font: Theme.fonts.hero(Theme.Title2, Theme.Semibold)
        color: Theme.text
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignHCenter
    }
    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(implicitWidth, empty.width, 420)
        visible: empty.text !== ""
        text: empty.text
        font: Theme.fonts.ui(Theme.Subheadline)
        color: Theme.secondaryText
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignHCenter
        textFormat: Text.PlainText
    }
    Item {
        width: 1
        height: Theme.Gap4
        visible: row.children.length > 0
    }
    Row {
        id: row

        anchors.horizontalCenter: parent.horizontalCenter
        spacing: Theme.Gap8
    }
}
