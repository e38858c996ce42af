// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// The editor's content: the libraries on the left, the phone on the right.
FocusScope {
    id: view

    required property DeckEditorModel editor

    implicitWidth: 1120
    implicitHeight: 780
    focus: true

    Component.onCompleted: view.forceActiveFocus()

    Keys.onEscapePressed: {
        if (dragged.lifted)
            dragged.cancel();
        else
            view.editor.cancel();
    }

    Keys.onPressed: event => {
        if (event.matches(StandardKey.Save))
            view.editor.save();
        else if (event.matches(StandardKey.Find))
            library.searchField.forceActiveFocus(Qt.ShortcutFocusReason);
        else if (event.matches(StandardKey.Undo))
            view.editor.undo();
        else if (event.matches(StandardKey.Redo))
            view.editor.redo();
        else
            return;
        event.accepted = true;
    }

    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            GradientStop {
                position: 0
                color: Theme.windowTop
            }
            GradientStop {
                position: 1
                color: Theme.windowBottom
            }
        }
    }

    EditorHeader {
        id: header

        width: parent.width
        editor: view.editor
    }

    Divider {
        id: line

        y: header.height
        width: parent.width
    }

    DraftOffer {
        id: offer

        objectName: "offer"
        y: line.y + line.height
        width: library.width
        editor: view.editor
        onAnswered: view.forceActiveFocus()
    }

    LibraryPane {
        id: library

        y: offer.y + offer.height
        width: parent.width - phone.width
        height: parent.height - y
        editor: view.editor
        dragged: dragged
    }

    Rectangle {
        x: phone.x
        y: phone.y
        width: line.height
        height: phone.height
        color: Theme.stroke
    }

    PhonePane {
        id: phone

        anchors.right: parent.right
        y: line.y + line.height
        width: Math.max(328, Math.min(440, Math.round(parent.width * 0.36)))
        height: parent.height - y
        editor: view.editor
        dragged: dragged
    }

    // Keeps the closed-hand cursor over all items during a drag.
    Item {
        anchors.fill: parent
        z: 9
        visible: dragged.lifted

        HoverHandler {
            cursorShape: Qt.ClosedHandCursor
        }
    }

    DraggedKey {
        id: dragged

        z: 10
        keySize: phone.preview.faceSize
    }
}
