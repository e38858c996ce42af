// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.UI
import Glintboard.Agent

// How to pair a phone: the code to scan, and the one to type.
Column {
    id: panel

    required property MenuBarModel menu
    readonly property font digits: Theme.fonts.mono(Theme.LargeTitle, Theme.Semibold, 0.1)

    spacing: 10

    MenuText {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        text: qsTr("Scan with iPhone")
        font: Theme.fonts.ui(Theme.Subheadline, Theme.Medium)
        color: Theme.secondaryText
    }

    PairingQRCodeView {
        anchors.horizontalCenter: parent.horizontalCenter
        qrString: panel.menu.pairingQRString
    }

    MenuText {
        objectName: "instruction"
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        text: panel.menu.isPaired ? qsTr("Scan to pair this iPhone again. This replaces the pairing on this Mac.") : qsTr("Open Glintboard on your iPhone and tap Pair. Point the camera at this code.")
        font: Theme.fonts.ui(Theme.Footnote)
        color: Theme.secondaryText
    }

    Divider {
        width: parent.width
    }

    Column {
        width: parent.width
        spacing: 4

        MenuText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("Manual code")
            font: Theme.fonts.ui(Theme.Footnote)
            color: Theme.secondaryText
        }

        // Two groups are copied with fewer mistakes than six digits in a row.
        Row {
            id: pin

            readonly property string text: panel.menu.currentPIN

            objectName: "pin"
            anchors.horizontalCenter: parent.horizontalCenter
            // Behind the last digit too there is tracking.
            leftPadding: panel.digits.letterSpacing
            spacing: panel.digits.pixelSize * 0.5
            scale: Math.min(1, parent.width / pin.width)
            Accessible.role: Accessible.StaticText
            Accessible.name: pin.text

            Text {
                text: panel.menu.pinGroups[0]
                color: Theme.text
                font: panel.digits
                Accessible.ignored: true
            }

            Text {
                text: panel.menu.pinGroups[1]
                color: Theme.text
                font: panel.digits
                Accessible.ignored: true
            }
        }
    }
}
