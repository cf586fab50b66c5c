import QtQuick

Column {
    id: foot
    required property QtObject people
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
    Text {
        width: foot.parent ? foot.parent.width - 48 : 0
        text: foot.people.path
        font: looks.subheadline
        color: looks.ink
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
    }
    SmallButton {
        objectName: "vemra.goal.path.see-in-starfold"
        text: "See in Starfold"
        onClicked: foot.people.focusPath()
    }
    SmallButton {
        objectName: "vemra.goal.path.outcome.start"
        text: "Record outcome"
        onClicked: foot.people.recordOutcome()
    }
    Text {
        width: foot.parent ? foot.parent.width - 48 : 0
        wrapMode: Text.Wrap
        topPadding: 16
        text: foot.people.footer
        font: looks.caption
        color: looks.secondary
        textFormat: Text.PlainText
    }
}
