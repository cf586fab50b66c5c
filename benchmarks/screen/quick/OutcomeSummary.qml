import QtQuick

Column {
    id: summary
    required property string outcome
    required property bool corrected
    required property string note
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
        SmallButton { text: "Correct" }
    }
    Text {
        visible: text !== ""
        text: summary.note
        font: looks.caption
        color: looks.secondary
        textFormat: Text.PlainText
    }
}
