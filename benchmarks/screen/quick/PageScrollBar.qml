import QtQuick
import QtQuick.Templates as T

T.ScrollBar {
    policy: T.ScrollBar.AlwaysOn
    implicitWidth: 14
    minimumSize: 0.04
    contentItem: Rectangle { implicitWidth: 14; radius: 2; color: looks.outline }
}
