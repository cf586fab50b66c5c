import QtQuick

Column {
    required property string title
    x: 24
    topPadding: 24
    spacing: 20
    Text { text: parent.title; font: looks.title; color: looks.ink; textFormat: Text.PlainText }
    Text { text: "People worth considering"; font: looks.headline; color: looks.ink }
}
