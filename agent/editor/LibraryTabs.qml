import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Glintboard.Editor
import Glintboard.UI

// Chooses one of the libraries.
Rectangle {
    id: tabs

    required property DeckEditorModel editor
    readonly property var all: tabs.editor.libraryTabs
    property real maximumWidth: Infinity
    // What the tabs take in one line; where that is too much they share the width, in lines.
    readonly property real naturalWidth: sumOf("implicitWidth", (a, b) => a + b)
    readonly property bool isTight: tabs.naturalWidth + 2 * row.x > tabs.maximumWidth
    readonly property real tabHeight: sumOf("implicitHeight", Math.max)
    readonly property int current: tabs.all.findIndex(tab => tab.id === tabs.editor.libraryTab)

    function sumOf(size: string, add: var): real {
        let sum = 0;
        for (let i = 0; i < repeater.count; ++i)
            sum = add(sum, repeater.itemAt(i)?.[size] ?? 0);
        return sum;
    }
    function choose(place: int): void {
        if (place >= 0 && place < tabs.all.length) {
            tabs.editor.libraryTab = tabs.all[place].id;
            const button = repeater.itemAt(place);
            if (button)
                button.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    implicitWidth: row.implicitWidth + 2 * row.x
    implicitHeight: row.implicitHeight + 2 * row.y
    radius: height / 2
    color: Look.hover

    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Libraries")

    Rectangle {
        readonly property Item button: repeater.count > tabs.current && tabs.current >= 0 ? repeater.itemAt(tabs.current) : null

        x: row.x + (button ? button.x : 0)
        y: row.y
        width: button ? button.width : 0
        height: row.height
        radius: height / 2
        color: Look.dark ? Look.faded(Look.text, 0.14) : "white"
        border.width: 1 / Screen.devicePixelRatio
        border.color: Look.stroke

        Behavior on x {
            NumberAnimation {
                duration: Look.moveTime
                easing.type: Easing.OutCubic
            }
        }
        Behavior on width {
            NumberAnimation {
                duration: Look.moveTime
                easing.type: Easing.OutCubic
            }
        }
    }

    Row {
        id: row

        x: 3
        y: 3

        Repeater {
            id: repeater

            model: tabs.all

            // The delegate reads ids of this file, which Qt 6.4 has no way to declare.
            // qmllint disable unqualified
            T.TabButton {
                id: button

                required property var modelData
                required property int index

                objectName: "tab-" + button.modelData.id
                text: button.modelData.title
                checked: tabs.current === button.index
                checkable: false
                focusPolicy: button.checked ? Qt.StrongFocus : Qt.ClickFocus
                hoverEnabled: true
                horizontalPadding: tabs.isTight ? Look.Gap4 : Look.Gap16
                verticalPadding: 6
                width: tabs.isTight ? Math.floor((tabs.maximumWidth - 2 * row.x) / repeater.count) : implicitWidth
                height: tabs.tabHeight
                implicitWidth: implicitContentWidth + 2 * Look.Gap16
                implicitHeight: implicitContentHeight + topPadding + bottomPadding

                Accessible.role: Accessible.PageTab
                Accessible.name: button.text
                Accessible.checked: button.checked

                onClicked: tabs.editor.libraryTab = button.modelData.id
                Keys.onLeftPressed: tabs.choose(button.index - 1)
                Keys.onRightPressed: tabs.choose(button.index + 1)

                contentItem: Text {
                    text: button.text
                    font: Look.fonts.uiSized(14, Look.Semibold)
                    color: button.checked ? Look.text : Look.secondaryText
                    wrapMode: Text.Wrap
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                }

                background: Rectangle {
                    radius: height / 2
                    color: button.hovered && !button.checked ? Look.hover : "transparent"

                    FocusRing {
                        target: button
                        anchors.margins: 0
                        radius: parent.radius
                    }
                }
            }
            // qmllint enable unqualified
        }
    }
}
