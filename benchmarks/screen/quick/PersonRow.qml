import QtQuick

Column {
    id: row
    required property int index
    required property string name
    required property string why
    required property string prefix
    required property bool hasSource
    required property string outcome
    required property bool corrected
    required property string note
    required property bool editing
    property QtObject people
    readonly property Item control: loader.item

    x: 24
    topPadding: 14
    bottomPadding: 4
    spacing: 4

    NameButton { text: row.name; onClicked: row.people.openPerson() }
    Text {
        width: row.parent ? row.parent.width - 48 : 0
        text: row.why
        font: looks.subheadline
        color: looks.secondary
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
    }
    SmallButton {
        objectName: row.prefix + ".show-source"
        visible: row.hasSource
        text: "Show source"
        onClicked: row.people.showSource()
    }
    Loader {
        id: loader
        sourceComponent: row.editing ? editor : row.outcome !== "" ? summary : start
    }
    Component {
        id: start
        SmallButton {
            objectName: row.prefix + ".outcome.start"
            text: "Record outcome"
            onClicked: row.people.setEditing(row.index, true)
        }
    }
    Component {
        id: summary
        OutcomeSummary {
            width: row.parent ? row.parent.width - 48 : 0
            prefix: row.prefix
            outcome: row.outcome
            corrected: row.corrected
            note: row.note
            onCorrectClicked: row.people.setEditing(row.index, true)
        }
    }
    Component {
        id: editor
        OutcomeEditor {
            people: row.people
            prefix: row.prefix
            onSaved: {
                row.people.recordOutcome()
                row.people.setEditing(row.index, false)
            }
            onCancelled: row.people.setEditing(row.index, false)
        }
    }
}
