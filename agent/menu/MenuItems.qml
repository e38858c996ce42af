// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.UI
import Glintboard.Agent

// The menu's items from top to bottom. The rows' texts stand in one line with all others; what
// answers to the pointer reaches a little into the padding.
Column {
    id: items

    required property MenuBarModel menu
    required property bool settled

    // What stands under a status, beside its mark or a symbol.
    readonly property real textColumn: Theme.symbolSize + Theme.Gap8

    spacing: Theme.Gap12

    function offers(command: int): bool {
        return items.menu.commands.includes(command);
    }

    move: Transition {
        enabled: items.settled && Theme.moveTime > 0

        NumberAnimation {
            property: "y"
            duration: Theme.moveTime
            easing.type: Easing.OutCubic
        }
    }
    add: Transition {
        enabled: items.settled

        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.fadeTime
        }
    }

    MenuText {
        width: parent.width
        text: items.menu.title
        font: Theme.fonts.ui(Theme.Headline, Theme.Semibold)
        color: Theme.text
        rightPadding: mark.width + Theme.Gap8
        Accessible.role: Accessible.Heading

        DeckMark {
            id: mark

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.symbolSize
            height: width
            keyColor: Theme.faded(Theme.text, 0.22)
            litColor: Theme.accent
            Accessible.ignored: true
        }
    }

    SymbolText {
        objectName: "pairedDevice"
        width: parent.width
        visible: items.menu.section === Menu.PairedDevice
        symbolName: "iphone.gen3"
        text: items.menu.pairingStatusText
        font: Theme.fonts.ui(Theme.Body, Theme.Medium)
    }

    PairingPanel {
        objectName: "pairingPanel"
        width: parent.width
        visible: items.menu.section === Menu.Code
        menu: items.menu
    }

    SymbolText {
        objectName: "lockMessage"
        width: parent.width
        visible: items.menu.section === Menu.LockedOut
        symbolName: "lock.fill"
        text: items.menu.pairingStatusText
        color: Theme.dangerText
    }

    Column {
        width: parent.width
        spacing: items.spacing
        visible: items.offers(Menu.DismissHint)

        Item {
            id: hintRow

            // Large text takes two rows.
            readonly property bool fits: width - dismiss.width - Theme.Gap12 >= 160 * Theme.textScale

            width: parent.width
            implicitHeight: fits ? Math.max(hint.implicitHeight, dismiss.implicitHeight) : hint.implicitHeight + Theme.Gap8 + dismiss.implicitHeight

            SymbolText {
                id: hint

                objectName: "hint"
                y: hintRow.fits ? (parent.height - height) / 2 : 0
                width: hintRow.fits ? parent.width - dismiss.width - Theme.Gap12 : parent.width
                symbolName: "exclamationmark.shield"
                symbolColor: Theme.warning
                text: items.menu.hint
                font: Theme.fonts.ui(Theme.Footnote)
            }

            PillButton {
                id: dismiss

                objectName: "dismiss"
                anchors.right: parent.right
                y: hintRow.fits ? (parent.height - height) / 2 : hint.implicitHeight + Theme.Gap8
                text: items.menu.buttonText(Menu.DismissHint)
                onClicked: items.menu.press(Menu.DismissHint)
            }
        }

        Divider {
            width: parent.width
        }
    }

    Divider {
        width: parent.width
    }

    Item {
        width: parent.width
        implicitHeight: status.implicitHeight

        Rectangle {
            x: (Theme.symbolSize - width) / 2
            anchors.verticalCenter: status.verticalCenter
            width: 8
            height: 8
            radius: 4
            color: items.menu.statusColor
        }

        MenuText {
            id: status

            objectName: "status"
            x: items.textColumn
            width: parent.width - x - busy.width
            text: items.menu.statusText
            font: Theme.fonts.ui(Theme.Subheadline)
            color: Theme.secondaryText
        }

        Spinner {
            id: busy

            anchors.right: parent.right
            anchors.verticalCenter: status.verticalCenter
            size: 16
            running: items.menu.isBusy
        }
    }

    MenuText {
        objectName: "listenerError"
        width: parent.width
        leftPadding: items.textColumn
        visible: items.offers(Menu.RestartAgent)
        text: items.menu.listenerError
        font: Theme.fonts.ui(Theme.Footnote)
        color: Theme.dangerText
    }

    PillButton {
        objectName: "restart"
        visible: items.offers(Menu.RestartAgent)
        width: parent.width
        kind: PillButton.Primary
        text: items.menu.buttonText(Menu.RestartAgent)
        symbolName: "arrow.clockwise"
        onClicked: items.menu.press(Menu.RestartAgent)
    }

    MenuRowButton {
        objectName: "editDeck"
        x: -Theme.Gap8
        width: parent.width + 2 * Theme.Gap8
        text: items.menu.buttonText(Menu.EditDeck)
        symbolName: "pencil"
        onClicked: items.menu.press(Menu.EditDeck)
    }

    MenuRowButton {
        readonly property int command: items.offers(Menu.HidePairingCode) ? Menu.HidePairingCode : Menu.ShowPairingCode

        objectName: "pairingCode"
        x: -Theme.Gap8
        width: parent.width + 2 * Theme.Gap8
        visible: items.offers(command)
        symbolName: "qrcode"
        text: items.menu.buttonText(command)
        onClicked: items.menu.press(command)
    }

    MenuRowButton {
        objectName: "unpair"
        x: -Theme.Gap8
        width: parent.width + 2 * Theme.Gap8
        visible: items.offers(Menu.Unpair)
        destructive: true
        symbolName: "personalhotspot.slash"
        text: items.menu.buttonText(Menu.Unpair)
        onClicked: items.menu.press(Menu.Unpair)
    }

    MenuRowButton {
        objectName: "quit"
        x: -Theme.Gap8
        width: parent.width + 2 * Theme.Gap8
        symbolName: "power"
        shortcutText: qsTr("Ctrl+Q")
        text: items.menu.buttonText(Menu.Quit)
        onClicked: items.menu.press(Menu.Quit)
    }
}
