// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.UI

// A symbol with the text it stands for; the symbol is level with the first line.
Item {
    id: row

    property alias text: label.text
    property alias font: label.font
    property alias color: label.color
    property alias symbolName: symbol.name
    property color symbolColor: row.color

    implicitHeight: Math.max(label.implicitHeight, symbol.size)

    Symbol {
        id: symbol

        y: Math.round((Math.min(label.implicitHeight, line.height) - symbol.size) / 2)
        size: Theme.symbolSize
        color: row.symbolColor
    }

    FontMetrics {
        id: line

        font: label.font
    }

    MenuText {
        id: label

        x: symbol.size + Theme.Gap8
        width: row.width - label.x
        color: Theme.text
        font: Theme.fonts.ui(Theme.Subheadline)
    }
}
