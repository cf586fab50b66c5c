import QtQuick

Column {
    id: foot
    required property string path
    required property string footer
    x: 24
    topPadding: 24
    bottomPadding: 24
    spacing: 4
    Text {
        text: "Supported path"
        font: looks.headline
        color: looks.ink
        bottomPadding: 6
    }
    Text { text: foot.path; font: looks.subheadline; color: looks.ink; textFormat: Text.PlainText }
    SmallButton { text: "See in Starfold" }
    SmallButton { text: "Record outcome" }
    Text {
        topPadding: 16
        text: foot.footer
        font: looks.caption
        color: looks.secondary
        textFormat: Text.PlainText
    }
}
