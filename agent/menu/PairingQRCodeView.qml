// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.UI
import Glintboard.Agent

// The pairing address as a QR code on its card, or a spinner while there is none.
Item {
    id: view

    required property string qrString

    implicitWidth: code.hasImage ? panel.implicitWidth : 180
    implicitHeight: code.hasImage ? panel.implicitHeight : 180

    Spinner {
        anchors.centerIn: parent
        size: 32
        running: !code.hasImage
    }

    GlassPanel {
        id: panel

        anchors.centerIn: parent
        implicitWidth: card.width + 2 * Theme.Gap8
        implicitHeight: card.height + 2 * Theme.Gap8
        width: implicitWidth
        height: implicitHeight
        radius: card.radius + Theme.Gap8
        visible: code.hasImage

        Rectangle {
            id: card

            anchors.centerIn: parent
            width: code.width + 2 * Theme.Gap12
            height: code.height + 2 * Theme.Gap12
            radius: 10
            color: "white"

            QRCodeItem {
                id: code

                objectName: "qrCode"
                anchors.centerIn: parent
                width: 156
                height: 156
                text: view.qrString
                Accessible.role: Accessible.Graphic
                Accessible.name: qsTr("Pairing QR code")
                Accessible.ignored: !code.hasImage
            }
        }
    }
}
