import QtQuick
import Glintboard.UI
import Glintboard.Agent

// How to pair a phone: the code to scan, and the one to type.
Column {
    id: panel

    required property MenuBarModel menu

    spacing: 10

    MenuText {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        text: qsTr("Scan with iPhone")
        font: Look.fonts.ui(Look.Subheadline, Look.Medium)
        color: Look.secondaryText
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
        font: Look.fonts.ui(Look.Footnote)
        color: Look.secondaryText
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
            font: Look.fonts.ui(Look.Footnote)
            color: Look.secondaryText
        }

        // Two groups are copied with fewer mistakes than six digits in a row.
        Row {
            id: pin

            readonly property string text: panel.menu.currentPIN

            objectName: "pin"
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Look.Gap12
            Accessible.role: Accessible.StaticText
            Accessible.name: pin.text

            Repeater {
                model: panel.menu.pinGroups

                Text {
                    id: group

                    required property string modelData

                    text: group.modelData
                    color: Look.text
                    font: Look.fonts.mono(Look.LargeTitle, Look.Semibold)
                    Accessible.ignored: true
                }
            }
        }
    }
}
