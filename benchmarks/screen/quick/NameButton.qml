import QtQuick
import QtQuick.Templates as T

// A person's name: a button without a frame, written like a link.
T.AbstractButton {
    id: button
    implicitWidth: label.implicitWidth + 2
    implicitHeight: 24
    font: looks.name
    Accessible.name: text
    contentItem: Text {
        id: label
        text: button.text
        font: button.font
        color: looks.link
        textFormat: Text.PlainText
        verticalAlignment: Text.AlignVCenter
    }
}
