import QtQuick
import QtQuick.Window
import Glintboard.UI

// A rounded translucent panel; opaque under increased contrast, or where nothing shines through.
Item {
    id: panel

    property real radius: Look.PanelRadius
    // Without a window's ground behind it a panel must be opaque to be legible.
    property bool opaque: Look.increasedContrast
    property bool raised: false
    property color fill: panel.opaque ? Look.solidSurface : Look.surface
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
        color: Look.shadow
    }

    Rectangle {
        anchors.fill: parent
        radius: panel.radius
        color: panel.fill
        border.width: 1 / Screen.devicePixelRatio
        border.color: Look.stroke
    }

    Item {
        id: body

        anchors.fill: parent
    }
}
