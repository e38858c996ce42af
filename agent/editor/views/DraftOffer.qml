// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// Offers the unsaved changes of an earlier window until they are restored or dismissed. Its height
// is animated. With large text the buttons are below the text.
Item {
    id: offer

    required property DeckEditorModel editor
    readonly property bool isOpen: offer.editor.offerText !== ""
    // Keep the last texts visible while the offer collapses.
    property string shownText: ""
    property bool showsNote: false

    // A button was pressed, and goes.
    signal answered

    function follow(): void {
        if (offer.isOpen) {
            offer.shownText = offer.editor.offerText;
            offer.showsNote = offer.editor.isOfferOutdated;
        }
    }

    readonly property real textWidth: Math.max(title.implicitWidth, offer.showsNote ? note.implicitWidth : 0)
    readonly property bool fits: texts.x + offer.textWidth + Theme.Gap16 <= buttons.x
    readonly property real buttonsBelow: offer.fits ? 0 : buttons.height + Theme.Gap8
    // Of the middle of the texts.
    readonly property real middle: Theme.Gap8 + Math.max(texts.height, offer.fits ? buttons.height : 0) / 2

    implicitHeight: 2 * offer.middle + offer.buttonsBelow + line.height
    height: offer.isOpen ? offer.implicitHeight : 0
    visible: offer.height > 0
    enabled: offer.isOpen
    clip: true

    Component.onCompleted: offer.follow()

    Connections {
        target: offer.editor
        function onOfferChanged() {
            offer.follow();
        }
    }

    Behavior on height {
        NumberAnimation {
            duration: Theme.moveTime
            easing.type: Easing.OutCubic
        }
    }

    Accessible.role: Accessible.AlertMessage
    Accessible.name: offer.showsNote ? title.text + " " + note.text : title.text

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }

    Symbol {
        id: symbol

        x: Theme.Gap24
        y: offer.middle - height / 2
        name: "pencil"
        color: Theme.accent
        size: Theme.symbolSize + 2
    }

    Column {
        id: texts

        x: symbol.x + symbol.width + Theme.Gap12
        y: offer.middle - height / 2
        width: (offer.fits ? buttons.x - Theme.Gap16 : parent.width - Theme.Gap24) - x

        Text {
            id: title

            objectName: "offer-text"
            width: parent.width
            text: offer.shownText
            font: Theme.fonts.ui(Theme.Footnote, Theme.Semibold)
            color: Theme.text
            wrapMode: Text.WordWrap
            Accessible.ignored: true
        }
        Text {
            id: note

            width: parent.width
            visible: offer.showsNote
            text: qsTr("The deck has changed since then.")
            font: Theme.fonts.ui(Theme.Footnote)
            color: Theme.secondaryText
            wrapMode: Text.WordWrap
            Accessible.ignored: true
        }
    }

    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: Theme.Gap24
        y: offer.fits ? offer.middle - height / 2 : 2 * offer.middle
        spacing: Theme.Gap8

        PillButton {
            objectName: "offer-dismiss"
            text: qsTr("Dismiss")
            font: Theme.fonts.ui(Theme.Footnote, Theme.Medium)
            onClicked: {
                offer.editor.dismissOffer();
                offer.answered();
            }
        }
        PillButton {
            objectName: "offer-restore"
            text: qsTr("Restore")
            font: Theme.fonts.ui(Theme.Footnote, Theme.Semibold)
            enabled: !offer.editor.isResetting
            onClicked: {
                offer.editor.restoreOffer();
                offer.answered();
            }
        }
    }

    Divider {
        id: line

        anchors.bottom: parent.bottom
        width: parent.width
    }
}
