// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

// The base of all buttons. Return presses it too, and a key that is held down presses it once.
T.Button {
    id: button

    // Ignores keys while true.
    property bool busy: false

    focusPolicy: Qt.StrongFocus
    hoverEnabled: true

    Accessible.role: Accessible.Button
    Accessible.name: button.text

    Keys.onReturnPressed: event => button.pressOnce(event)
    Keys.onEnterPressed: event => button.pressOnce(event)
    Keys.onSpacePressed: event => event.accepted = button.busy || event.isAutoRepeat
    Keys.onReleased: event => event.accepted = event.isAutoRepeat

    function pressOnce(event: var) {
        if (button.busy || event.isAutoRepeat)
            return;
        if (button.action)
            button.action.trigger(button);
        else
            button.clicked();
    }
}
