import QtQuick
import QtQuick.Templates as T

Rectangle {
    id: page
    required property QtObject people
    color: looks.page

    function openEditor(row) { list.itemAtIndex(row).control.clicked() }
    function closeEditor(row) { list.itemAtIndex(row).control.cancelled() }
    function focusNote(row) { list.itemAtIndex(row).control.focusNote() }
    function scrollToEnd() { list.positionViewAtEnd() }
    function turnWheel() {
        list.contentY = Math.min(list.contentY + 60, list.originY + list.contentHeight - list.height)
    }
    function scrollToStart() { list.positionViewAtBeginning() }

    ListView {
        id: list
        anchors.fill: parent
        model: page.people
        reuseItems: true
        boundsBehavior: Flickable.StopAtBounds
        header: Item {
            width: list.width
            height: head.height
            PageHead { id: head; title: page.people.title }
        }
        delegate: PersonRow { people: page.people }
        footer: Item {
            width: list.width
            height: foot.height
            PageFoot { id: foot; people: page.people }
        }
        T.ScrollBar.vertical: PageScrollBar {}
    }
}
