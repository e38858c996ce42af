import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Glintboard.Editor
import Glintboard.UI

// Chooses the deck that is edited.
T.ComboBox {
    id: control

    required property DeckEditorModel editor
    readonly property var all: control.editor.categories

    model: control.all
    textRole: "name"
    valueRole: "id"
    currentIndex: control.all.findIndex(category => category.id === control.editor.selectedCategory)
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(implicitContentHeight + Look.Gap8, 32)
    leftPadding: Look.Gap12
    rightPadding: 12 + Look.Gap8 + Look.Gap12
    font: Look.fonts.ui(Look.Footnote, Look.Bold)
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
        color: Look.accent
        verticalAlignment: Text.AlignVCenter
    }

    indicator: Symbol {
        x: control.width - width - Look.Gap12
        y: (control.height - height) / 2
        name: "chevron.down"
        color: Look.accent
        size: 12
    }

    background: Rectangle {
        radius: height / 2
        color: control.down ? Look.pressed : control.hovered ? Look.hover : Look.surface
        border.width: 1 / Screen.devicePixelRatio
        border.color: Look.stroke

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
        padding: Look.Gap8
        implicitHeight: Math.max(implicitContentHeight + topPadding + bottomPadding, 36)
        highlighted: control.highlightedIndex === item.index
        hoverEnabled: true

        Accessible.role: Accessible.MenuItem
        Accessible.name: item.modelData.name

        contentItem: Text {
            text: item.modelData.name
            font: Look.fonts.ui(Look.Subheadline, Look.Medium)
            color: Look.text
            verticalAlignment: Text.AlignVCenter

            Symbol {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                visible: control.currentIndex === item.index
                name: "checkmark"
                color: Look.accent
                size: 14
            }
        }

        background: Rectangle {
            radius: Look.FieldRadius
            color: item.down ? Look.pressed : item.highlighted ? Look.hover : "transparent"
        }
    }
    // qmllint enable unqualified

    popup: T.Popup {
        y: control.height + Look.Gap4
        width: Math.max(control.width, 180)
        height: contentItem.implicitHeight + 2 * Look.Gap8
        padding: Look.Gap8

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
                radius: Look.CardRadius
                blur: 24
                fall: 8
                color: Look.shadow
            }

            Rectangle {
                anchors.fill: parent
                radius: Look.CardRadius
                color: Look.solidSurface
                border.width: 1 / Screen.devicePixelRatio
                border.color: Look.stroke
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
