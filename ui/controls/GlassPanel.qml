// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Glintboard.UI

// A rounded translucent panel; opaque with increased contrast or without a window's background behind it.
Item {
    id: panel

    property real radius: Theme.PanelRadius
    // An opaque panel stays legible without a window's background behind it.
    property bool opaque: Theme.increasedContrast
    property bool raised: false
    property color fill: panel.opaque ? Theme.solidSurface : Theme.surface
    default property alias content: body.data

    implicitWidth: body.childrenRect.width
    implicitHeight: body.childrenRect.height

    SoftShadow {
        anchors.fill: parent
        anchors.margins: -blur
        anchors.topMargin: fall - blur
        anchors.bottomMargin: -fall - blur
        visible: panel.raised
        radius: panel.radius
        blur: 24
        fall: 8
        color: Theme.shadow
    }

    Rectangle {
        anchors.fill: parent
        radius: panel.radius
        color: panel.fill
        border.width: 1 / Screen.devicePixelRatio
        border.color: Theme.stroke
    }

    Item {
        id: body

        anchors.fill: parent
    }
}
