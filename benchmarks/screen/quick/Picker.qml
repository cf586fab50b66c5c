import QtQuick
import QtQuick.Templates as T

// A menu of choices; the menu is made when it is opened for the first time.
T.ComboBox {
    id: picker
    implicitWidth: 150
    implicitHeight: 24
    font: looks.body
    leftPadding: 8
    Accessible.name: "Outcome"
    contentItem: Text {
        text: picker.displayText
        font: picker.font
        color: looks.ink
        textFormat: Text.PlainText
        verticalAlignment: Text.AlignVCenter
    }
    background: Rectangle {
        radius: 2
        border.color: picker.activeFocus ? looks.link : looks.outline
        gradient: Gradient {
            GradientStop { position: 0; color: looks.buttonTop }
            GradientStop { position: 1; color: looks.buttonBottom }
        }
    }
    indicator: Text {
        x: picker.width - width - 6
        y: (picker.height - height) / 2
        text: "\u25BE"
        color: looks.ink
    }
    delegate: T.ItemDelegate {
        id: choice
        required property string modelData
        width: picker.width
        height: 24
        contentItem: Text {
            text: choice.modelData
            font: looks.body
            color: looks.ink
            verticalAlignment: Text.AlignVCenter
        }
    }
    popup: T.Popup {
        y: picker.height
        width: picker.width
        height: 8 * 24
        contentItem: ListView {
            clip: true
            model: picker.delegateModel
            currentIndex: picker.highlightedIndex
        }
        background: Rectangle { border.color: looks.outline }
    }
}
