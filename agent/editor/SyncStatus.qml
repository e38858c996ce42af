import QtQuick
import Glintboard.Editor
import Glintboard.UI

// Whether the deck is saved, and by the dot whether the phone has it.
Item {
    id: status

    required property string syncLabel
    required property bool syncIsLive
    required property bool isUnsaved

    implicitWidth: dot.width + Look.Gap8 + label.implicitWidth
    implicitHeight: label.implicitHeight

    Accessible.role: Accessible.StaticText
    Accessible.name: status.syncLabel

    Rectangle {
        id: dot

        anchors.verticalCenter: parent.verticalCenter
        width: 8
        height: 8
        radius: 4
        color: status.syncIsLive ? Look.success : status.isUnsaved ? Look.warning : Look.inactive

        // The light of a deck that is on the phone right now.
        Rectangle {
            anchors.centerIn: parent
            width: 16
            height: 16
            radius: 8
            color: Look.success
            opacity: status.syncIsLive ? 0.25 : 0

            Behavior on opacity {
                NumberAnimation {
                    duration: Look.fadeTime
                }
            }
        }

        Behavior on color {
            ColorAnimation {
                duration: Look.fadeTime
            }
        }
    }

    Text {
        id: label

        x: dot.width + Look.Gap8
        text: status.syncLabel
        font: Look.fonts.ui(Look.Footnote, Look.Medium)
        color: status.syncIsLive ? Look.successText : status.isUnsaved ? Look.warningText : Look.secondaryText
        Accessible.ignored: true
    }
}
