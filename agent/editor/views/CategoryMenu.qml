// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Glintboard.Editor
import Glintboard.UI

// Selects the deck to edit.
T.ComboBox {
    id: control

    required property DeckEditorModel editor
    readonly property var all: control.editor.categories

    model: control.all
    textRole: "name"
    valueRole: "id"
    currentIndex: control.all.findIndex(category => category.id === control.editor.selectedCategory)
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(implicitContentHeight + Theme.Gap8, 32)
    leftPadding: Theme.Gap12
    rightPadding: 12 + Theme.Gap8 + Theme.Gap12
    font: Theme.fonts.ui(Theme.Footnote, Theme.Bold)
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true

    onActivated: control.editor.selectedCategory = control.currentValue

    Accessible.role: Accessible.ComboBox
    Accessible.name: qsTr("Deck")
    Accessible.description: control.displayText

    Keys.onReturnPressed: control.popup.open()
    Keys.onEnterPressed: control.popup.open()

    contentItem: Text {
        text: control.displayText.toUpperCase()
        font.family: control.font.family
        font.styleName: control.font.styleName
        font.weight: control.font.weight
        font.pixelSize: control.font.pixelSize
        font.letterSpacing: 1.2
        color: Theme.accent
        verticalAlignment: Text.AlignVCenter
    }

    indicator: Symbol {
        x: control.width - width - Theme.Gap12
        y: (control.height - height) / 2
        name: "chevron.down"
        color: Theme.accent
        size: 12
    }

    background: Rectangle {
        radius: height / 2
        color: control.down ? Theme.pressed : control.hovered ? Theme.hover : Theme.surface
        border.width: 1 / Screen.devicePixelRatio
        border.color: Theme.stroke

        FocusRing {
            target: control
            cornerRadius: parent.radius
        }
    }

    // The delegate reads ids of this file, which Qt 6.4 has no way to declare.
    // qmllint disable unqualified
    delegate: T.ItemDelegate {
        id: item

        required property var modelData
        required property int index

        width: ListView.view ? ListView.view.width : 0
        padding: Theme.Gap8
        implicitHeight: Math.max(implicitContentHeight + topPadding + bottomPadding, 36)
        highlighted: control.highlightedIndex === item.index
        hoverEnabled: true

        Accessible.role: Accessible.MenuItem
        Accessible.name: item.modelData.name

        contentItem: Text {
            text: item.modelData.name
            font: Theme.fonts.ui(Theme.Subheadline, Theme.Medium)
            color: Theme.text
            verticalAlignment: Text.AlignVCenter

            Symbol {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                visible: control.currentIndex === item.index
                name: "checkmark"
                color: Theme.accent
                size: 14
            }
        }

        background: Rectangle {
            radius: Theme.FieldRadius
            color: item.down ? Theme.pressed : item.highlighted ? Theme.hover : "transparent"
        }
    }
    // qmllint enable unqualified

    popup: T.Popup {
        y: control.height + Theme.Gap4
        width: Math.max(control.width, 180)
        height: contentItem.implicitHeight + 2 * Theme.Gap8
        padding: Theme.Gap8

        contentItem: ListView {
            implicitHeight: contentHeight
            clip: true
            interactive: false
            model: control.delegateModel
            currentIndex: control.highlightedIndex
        }

        background: Item {
            SoftShadow {
                anchors.fill: parent
                anchors.margins: -blur
                anchors.topMargin: fall - blur
                anchors.bottomMargin: -fall - blur
                radius: Theme.CardRadius
                blur: 24
                fall: 8
                color: Theme.shadow
            }

            Rectangle {
                anchors.fill: parent
                radius: Theme.CardRadius
                color: Theme.solidSurface
                border.width: 1 / Screen.devicePixelRatio
                border.color: Theme.stroke
            }
        }

        enter: Transition {
            NumberAnimation {
                property: "opacity"
                from: 0
                to: 1
                duration: 90
            }
        }
    }
}
