// SPDX-License-Identifier: MIT
import QtQuick

// A text of the menu, read out as it stands; names that phones chose are never markup.
Text {
    id: label

    wrapMode: Text.Wrap
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: label.text
}
