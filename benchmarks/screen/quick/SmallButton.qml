import QtQuick
import QtQuick.Templates as T

// A button as small as its title allows.
T.AbstractButton {
    id: button
    implicitWidth: label.implicitWidth + label.implicitHeight + 8
    implicitHeight: 24
    font: looks.caption
    Accessible.name: text
    contentItem: Text {
        id: label
        text: button.text
        font: button.font
        color: looks.ink
        textFormat: Text.PlainText
        opacity: button.enabled ? 1 : 0.5
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    background: Rectangle {
        radius: 2
        border.color: button.activeFocus ? looks.link : looks.outline
        gradient: Gradient {
            GradientStop { position: 0; color: looks.buttonTop }
            GradientStop { position: 1; color: looks.buttonBottom }
        }
    }
}
