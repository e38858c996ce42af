// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.UI

// The content of a MenuRowButton: a symbol, a text that may wrap, and the keyboard shortcut.
Item {
    id: label

    property alias text: title.text
    property alias font: title.font
    property color color: Theme.text
    property string symbolName: ""
    property string shortcutText: ""

    implicitWidth: title.x + title.implicitWidth + keys.implicitWidth + Theme.Gap16
    implicitHeight: title.implicitHeight

    Symbol {
        id: symbol

        anchors.verticalCenter: parent.verticalCenter
        visible: label.symbolName !== ""
        name: label.symbolName
        color: label.color
        size: Theme.symbolSize
    }

    Text {
        id: title

        x: symbol.visible ? symbol.width + Theme.Gap8 : 0
        width: parent.width - x - (keys.visible ? keys.width + Theme.Gap8 : 0)
        anchors.verticalCenter: parent.verticalCenter
        color: label.color
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
    }

    Text {
        id: keys

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        visible: label.shortcutText !== ""
        text: label.shortcutText
        font: Theme.fonts.ui(Theme.Caption)
        color: Theme.secondaryText
    }
}
