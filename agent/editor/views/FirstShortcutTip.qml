// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Glintboard.Editor
import Glintboard.UI

// A tip that shows after the first Shortcut was added to the deck.
Rectangle {
    id: tip

    required property DeckEditorModel editor

    implicitHeight: Math.max(text.implicitHeight, done.implicitHeight) + 2 * Theme.Gap12
    radius: Theme.CardRadius
    color: Theme.solidSurface
    border.width: 1 / Screen.devicePixelRatio
    border.color: Theme.accent
    height: tip.editor.showFirstShortcutTip ? tip.implicitHeight : 0
    visible: tip.height > 0
    clip: true

    Behavior on height {
        NumberAnimation {
            duration: Theme.moveTime
            easing.type: Easing.OutCubic
        }
    }

    Accessible.role: Accessible.Note
    Accessible.name: text.text

    Symbol {
        id: symbol

        x: Theme.Gap12
        anchors.verticalCenter: parent.verticalCenter
        name: "info.circle.fill"
        color: Theme.accent
        size: 20
    }

    Text {
        id: text

        x: symbol.x + symbol.width + Theme.Gap12
        width: done.x - x - Theme.Gap12
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Your first Shortcut key. Save the deck, then tap the key on the iPhone: the Shortcut runs here. The first run may ask for permission.")
        font: Theme.fonts.ui(Theme.Footnote)
        color: Theme.text
        wrapMode: Text.WordWrap
        Accessible.ignored: true
    }

    PillButton {
        id: done

        objectName: "tip-done"
        anchors.right: parent.right
        anchors.rightMargin: Theme.Gap12
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Got It")
        onClicked: tip.editor.dismissFirstShortcutTip()
    }
}
