// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// The dragged item under the pointer: a card, which becomes a key over the phone. It has no size,
// so that its position is the pointer's.
Item {
    id: dragged

    // The data of the drag.
    property string payload: ""
    property bool lifted: false
    // The item of the dragged card or key. It stays in its layout until the drop.
    property Item owner: null
    property bool overPhone: false
    // Whether a drop at the pointer would be accepted.
    property bool welcome: true
    property real keySize: 52
    // What the card and the key show: the roles of their model.
    property var content: ({})
    property point origin
    property point grip
    property size cardSize
    readonly property bool isKey: dragged.content.isKey === true
    readonly property bool showsKey: dragged.isKey || dragged.overPhone

    // Records a press, which may start a drag.
    function pressAt(from: Item, x: real, y: real): void {
        if (back.running)
            back.complete();
        const point = dragged.parent.mapFromItem(from, x, y);
        dragged.x = point.x;
        dragged.y = point.y;
        dragged.origin = point;
    }
    function lift(what: var, who: Item, face: Item): void {
        const corner = dragged.parent.mapFromItem(face, 0, 0);
        dragged.grip = Qt.point(corner.x - dragged.origin.x, corner.y - dragged.origin.y);
        dragged.cardSize = Qt.size(face.width, face.height);
        dragged.content = what;
        dragged.payload = what.payload;
        dragged.owner = who;
        dragged.overPhone = false;
        dragged.welcome = true;
        dragged.lifted = true;
        dragged.Drag.active = true;
    }
    function drop(who: Item): void {
        if (!dragged.lifted || dragged.owner !== who)
            return;
        if (dragged.Drag.drop() === Qt.IgnoreAction)
            dragged.goBack();
        else
            dragged.letGo();
    }
    function cancel(): void {
        if (dragged.lifted) {
            dragged.Drag.cancel();
            dragged.goBack();
        }
    }
    // Ends the drag of an item that is destroyed.
    function giveUp(who: Item): void {
        if (dragged.owner === who) {
            if (dragged.lifted)
                dragged.Drag.cancel();
            dragged.letGo();
        }
    }
    function goBack(): void {
        dragged.Drag.active = false;
        dragged.lifted = false;
        if (Theme.reducedMotion)
            dragged.letGo();
        else
            back.start();
    }
    function letGo(): void {
        dragged.Drag.active = false;
        dragged.lifted = false;
        dragged.owner = null;
        dragged.overPhone = false;
    }

    visible: dragged.owner !== null
    Drag.dragType: Drag.Internal
    Drag.mimeData: ({
            "text/plain": dragged.payload
        })

    Item {
        x: dragged.grip.x
        y: dragged.grip.y
        width: dragged.cardSize.width
        height: dragged.cardSize.height
        visible: !dragged.isKey
        opacity: dragged.showsKey ? 0 : 1
        scale: dragged.showsKey ? 0.5 : dragged.lifted && !Theme.reducedMotion ? 1.05 : 1
        transformOrigin: Item.Center

        SoftShadow {
            anchors.fill: parent
            anchors.margins: -blur
            anchors.topMargin: fall - blur
            anchors.bottomMargin: -fall - blur
            radius: Theme.CardRadius
            blur: 32
            fall: 14
            color: Theme.shadow
        }

        CardFace {
            anchors.fill: parent
            color: Theme.solidSurface
            label: dragged.content.label ?? ""
            subtitle: dragged.content.subtitle ?? ""
            symbolName: dragged.content.iconSymbol ?? ""
            iconSource: dragged.content.iconSource ?? ""
            accent: dragged.content.accent ?? Theme.accent
            isInDeck: dragged.content.isInDeck ?? false
            tinted: true
        }

        Behavior on opacity {
            NumberAnimation {
                duration: 120
            }
        }
        Behavior on scale {
            NumberAnimation {
                duration: Theme.moveTime
                easing.type: Easing.OutCubic
            }
        }
    }

    GlassDeckKeyView {
        x: dragged.isKey ? dragged.grip.x : -width / 2
        y: dragged.isKey ? dragged.grip.y : -tileFaceSize / 2
        tileFaceSize: dragged.keySize
        showsLabel: false
        kind: dragged.content.kind ?? "app"
        label: dragged.content.label ?? ""
        iconName: dragged.content.iconName ?? ""
        iconSymbol: dragged.content.iconSymbol ?? ""
        iconSource: dragged.content.iconSource ?? ""
        accent: dragged.content.accent ?? Theme.accent
        isMissingShortcut: dragged.content.isMissingShortcut ?? false
        opacity: dragged.showsKey ? dragged.welcome ? 1 : 0.5 : 0
        scale: !dragged.showsKey ? 0.6 : dragged.lifted && !Theme.reducedMotion ? 1.12 : 1
        transformOrigin: Item.Center

        Behavior on opacity {
            NumberAnimation {
                duration: 120
            }
        }
        Behavior on scale {
            NumberAnimation {
                duration: Theme.moveTime
                easing.type: Easing.OutCubic
            }
        }
    }

    SequentialAnimation {
        id: back

        ParallelAnimation {
            NumberAnimation {
                target: dragged
                property: "x"
                to: dragged.origin.x
                duration: 200
                easing.type: Easing.OutCubic
            }
            NumberAnimation {
                target: dragged
                property: "y"
                to: dragged.origin.y
                duration: 200
                easing.type: Easing.OutCubic
            }
        }
        ScriptAction {
            script: dragged.letGo()
        }
    }
}
