import QtQuick

Rectangle {
    color: looks.page
}
