// SPDX-License-Identifier: MIT
import QtQuick
import Glintboard.Editor
import Glintboard.UI

// The deck's name and status, and the buttons that end the editing.
Item {
    id: header

    required property DeckEditorModel editor
    readonly property alias nameField: name

    // The width left for the name beside the status. With large text the status is below the name.
    readonly property real room: buttons.x - name.x - status.width - 2 * Theme.Gap16
    readonly property bool fits: header.room >= 96

    implicitHeight: Math.max(name.implicitHeight + (header.fits ? 0 : status.height), cancel.implicitHeight) + 2 * Theme.Gap12

    CategoryMenu {
        id: category

        objectName: "category"
        x: Theme.Gap24
        anchors.verticalCenter: parent.verticalCenter
        editor: header.editor
    }

    GlintTextField {
        id: name

        objectName: "name"
        x: category.x + category.width + Theme.Gap8
        y: (header.height - height - (header.fits ? 0 : status.height)) / 2
        width: Math.min(text === "" ? implicitWidth : Math.max(48, contentWidth + leftPadding + rightPadding + 2), header.fits ? header.room : buttons.x - x - Theme.Gap16)
        inPlace: true
        font: Theme.fonts.hero(Theme.Title)
        placeholderText: qsTr("Deck name")
        text: header.editor.deckName
        enabled: !header.editor.isLoading && !header.editor.isResetting

        onTextEdited: header.editor.deckName = text
        onAccepted: header.forceActiveFocus()

        // Undo and redo are the editor's, not the field's.
        Keys.onPressed: event => {
            if (event.matches(StandardKey.Undo))
                header.editor.undo();
            else if (event.matches(StandardKey.Redo))
                header.editor.redo();
            else if (event.key === Qt.Key_Escape)
                // The first Escape leaves the name field, the next one closes the window.
                header.forceActiveFocus();
            else
                return;
            event.accepted = true;
        }
    }

    SyncStatus {
        id: status

        objectName: "status"
        x: header.fits ? name.x + name.width + Theme.Gap16 : name.x + name.leftPadding
        y: header.fits ? (header.height - height) / 2 : name.y + name.height
        syncLabel: header.editor.syncLabel
        syncIsLive: header.editor.syncIsLive
        isUnsaved: header.editor.hasUnsavedChanges
    }

    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: Theme.Gap24
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.Gap8

        PillButton {
            id: cancel

            text: qsTr("Cancel")
            onClicked: header.editor.cancel()
        }

        PillButton {
            id: save

            objectName: "save"
            kind: PillButton.Primary
            text: qsTr("Save to iPhone")
            enabled: !header.editor.isLoading && !header.editor.isResetting
            busy: header.editor.isSaving
            onClicked: header.editor.save()

            HelpText {
                target: save
                text: qsTr("Ctrl+S")
            }
        }
    }
}
