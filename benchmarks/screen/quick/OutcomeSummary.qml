import QtQuick

Column {
    id: summary
    required property string prefix
    required property string outcome
    required property bool corrected
    required property string note
    signal correctClicked
    spacing: 2
    Row {
        spacing: 8
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: summary.outcome
            font: looks.caption
            color: looks.secondary
            textFormat: Text.PlainText
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            visible: summary.corrected
            text: "\u00B7 corrected"
            font: looks.caption2
            color: looks.tertiary
        }
        SmallButton {
            objectName: summary.prefix + ".outcome.correct"
            text: "Correct"
            onClicked: summary.correctClicked()
        }
    }
    Text {
        width: summary.width
        visible: text !== ""
        wrapMode: Text.Wrap
        text: summary.note
        font: looks.caption
        color: looks.secondary
        textFormat: Text.PlainText
    }
}
