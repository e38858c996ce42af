// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Glintboard.Editor
import Glintboard.UI

// A card in a library's grid. A click adds its key to the deck, a drag places the key on the phone.
T.Control {
    id: card

    required property int index
    required property string payload
    required property string label
    property string subtitle: ""
    property string symbolName: ""
    property string iconSource: ""
    property color accent: Theme.accent
    required property bool isInDeck
    required property bool isFull
    property string kind: "app"
    // Its LibraryGrid.
    readonly property var grid: GridView.view
    // The window's drag item.
    readonly property DraggedKey dragged: card.grid ? card.grid.dragged : null
    // The keyboard's current card.
    readonly property bool isCurrent: card.grid !== null && card.grid.activeFocus && card.grid.byKeyboard && GridView.isCurrentItem

    signal add

    function liftCard(): void {
        card.dragged.lift({
            "payload": card.payload,
            "kind": card.kind,
            "label": card.label,
            "subtitle": card.subtitle,
            "iconSymbol": card.symbolName,
            "iconSource": card.iconSource,
            "accent": card.accent,
            "isInDeck": card.isInDeck
        }, card, face);
    }

    width: card.grid ? card.grid.cellWidth : implicitWidth
    height: card.grid ? card.grid.cellHeight : implicitHeight
    hoverEnabled: true
    onAdd: card.grid.add(card.payload)

    Accessible.role: Accessible.Button
    Accessible.name: card.label
    Accessible.description: card.isInDeck ? qsTr("In deck") : card.isFull ? qsTr("The deck is full") : qsTr("Adds this key to the deck")
    Accessible.focusable: true
    Accessible.focused: card.isCurrent
    Accessible.onPressAction: card.add()

    GridView.onPooled: card.dragged.giveUp(card)
    Component.onDestruction: if (card.dragged) card.dragged.giveUp(card)

    HelpText {
        target: card
        text: face.cut && card.dragged && !card.dragged.lifted ? card.label : ""
    }

    CardFace {
        id: face

        anchors.fill: parent
        anchors.margins: 6
        label: card.label
        subtitle: card.subtitle
        symbolName: card.symbolName
        iconSource: card.iconSource
        accent: card.accent
        isInDeck: card.isInDeck
        isFull: card.isFull
        tinted: (card.hovered || card.isCurrent) && !(card.dragged && card.dragged.lifted)
        opacity: card.dragged && card.dragged.owner === card ? 0.35 : 1
        scale: area.pressed && !area.drag.active && !Theme.reducedMotion ? 0.98 : 1

        Behavior on scale {
            ScaleAnimator {
                duration: area.pressed ? Theme.pressTime : Theme.releaseTime
                easing.type: Easing.OutCubic
            }
        }

        FocusRing {
            target: card
            shown: card.isCurrent
            cornerRadius: Theme.CardRadius
        }
    }

    MouseArea {
        id: area

        anchors.fill: parent
        cursorShape: area.drag.active ? Qt.ClosedHandCursor : Qt.OpenHandCursor
        drag.target: card.dragged
        drag.threshold: 6
        drag.smoothed: false
        preventStealing: true

        // A finger scrolls the list, a pointer drags the card.
        onPressed: mouse => {
            area.preventStealing = mouse.source === Qt.MouseEventNotSynthesized;
            card.dragged.pressAt(area, mouse.x, mouse.y);
        }
        drag.onActiveChanged: {
            if (area.drag.active)
                card.liftCard();
        }
        onReleased: {
            area.preventStealing = true;
            card.dragged.drop(card);
        }
        onCanceled: {
            area.preventStealing = true;
            card.dragged.giveUp(card);
        }
        onClicked: card.add()
    }
}
