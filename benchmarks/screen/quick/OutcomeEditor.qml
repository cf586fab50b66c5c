import QtQuick
import QtQuick.Templates as T

Column {
    id: editor
    required property QtObject people
    required property string prefix
    signal saved
    signal cancelled
    spacing: 6

    function focusNote() { note.forceActiveFocus() }

    Picker {
        id: picker
        objectName: editor.prefix + ".outcome.picker"
        model: editor.people.choices
        currentIndex: 4
    }
    T.TextField {
        id: note
        objectName: editor.prefix + ".outcome.note"
        width: 34 * metrics.advanceWidth
        height: 24
        leftPadding: 6
        rightPadding: 6
        verticalAlignment: Text.AlignVCenter
        font: looks.body
        color: looks.ink
        Accessible.name: "Note (optional)"
        background: Rectangle {
            radius: 4
            border.color: note.activeFocus ? looks.link : looks.outline
        }
        Text {
            x: note.leftPadding
            anchors.verticalCenter: parent.verticalCenter
            visible: note.text === ""
            text: "Note (optional)"
            font: looks.body
            color: looks.tertiary
        }
    }
    TextMetrics { id: metrics; font: looks.body; text: "m" }
    Row {
        spacing: 12
        SmallButton {
            objectName: editor.prefix + ".outcome.save"
            text: "Save"
            onClicked: editor.saved()
            enabled: editor.people.canSave(picker.currentIndex, note.text)
        }
        SmallButton {
            objectName: editor.prefix + ".outcome.cancel"
            text: "Cancel"
            onClicked: editor.cancelled()
        }
    }
    Component.onCompleted: picker.forceActiveFocus()
}
