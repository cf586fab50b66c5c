import QtQuick
import QtQuick.Templates as T

Rectangle {
    id: page
    required property QtObject people
    color: looks.page

    function openEditor(row) { rows.itemAt(row).control.clicked() }
    function closeEditor(row) { rows.itemAt(row).control.cancelled() }
    function focusNote(row) { rows.itemAt(row).control.focusNote() }
    function scrollToEnd() { scroller.contentY = scroller.contentHeight - scroller.height }
    function turnWheel() {
        scroller.contentY = Math.min(scroller.contentY + 60, scroller.originY + scroller.contentHeight - scroller.height)
    }
    function scrollToStart() { scroller.contentY = 0 }

    Flickable {
        id: scroller
        anchors.fill: parent
        contentHeight: column.height
        boundsBehavior: Flickable.StopAtBounds
        Column {
            id: column
            width: scroller.width
            PageHead { title: page.people.title }
            Repeater {
                id: rows
                model: page.people
                delegate: PersonRow { people: page.people }
            }
            PageFoot { people: page.people }
        }
        T.ScrollBar.vertical: PageScrollBar {}
    }
}
