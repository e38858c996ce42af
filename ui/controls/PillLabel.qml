// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.UI

// The content of a PillButton: a symbol and a text, or the spinner instead of both.
Item {
    id: label

    property alias text: title.text
    property alias font: title.font
    property color color: Theme.text
    property string symbolName: ""
    property bool busy: false

    readonly property real before: symbol.visible ? symbol.width + row.spacing : 0

    implicitWidth: label.before + Math.ceil(title.implicitWidth)
    implicitHeight: title.implicitHeight

    Row {
        id: row

        anchors.centerIn: parent
        spacing: Theme.Gap8
        opacity: busy.shown ? 0 : 1

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

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(Math.ceil(implicitWidth), label.width - label.before)
            color: label.color
            wrapMode: Text.WordWrap
            horizontalAlignment: Text.AlignHCenter
            textFormat: Text.PlainText
        }
    }

    Spinner {
        id: busy

        anchors.centerIn: parent
        color: label.color
        size: 18
        running: label.busy
    }
}
