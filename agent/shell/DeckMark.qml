import QtQuick
import Glintboard.UI

// The agent's mark: a deck of four keys, one of them lit.
Item {
    id: mark

    implicitWidth: 18
    implicitHeight: 18
    Accessible.ignored: true

    Repeater {
        model: 4

        Rectangle {
            required property int index
            readonly property bool lit: index === 1

            x: index % 2 * 10
            y: Math.floor(index / 2) * 10
            width: 8
            height: 8
            radius: 2.5
            color: lit ? Look.accent : Look.faded(Look.text, 0.22)
        }
    }
}
