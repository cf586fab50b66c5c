#include "apps/desk/window/KeyInView.hpp"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QScrollArea>

namespace vemra::desk {

void scrollIn(QWidget& widget) {
  for (QWidget* above = widget.parentWidget(); above; above = above->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(above)) area->ensureWidgetVisible(&widget);
  }
}

namespace {

class ScrollIn : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    switch (static_cast<QKeyEvent*>(event)->key()) {
      case Qt::Key_Space:
      case Qt::Key_Select:
      case Qt::Key_Return:  // these two keys press a button only on some desktops
      case Qt::Key_Enter:
        scrollIn(*static_cast<QWidget*>(object));
        break;
      default:
        break;
    }
    return false;
  }
};

}  // namespace

void scrollInBeforeKeys(QAbstractButton& button) {
  button.installEventFilter(new ScrollIn(&button));
}

}  // namespace vemra::desk
