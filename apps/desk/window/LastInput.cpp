#include "apps/desk/window/LastInput.hpp"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

namespace vemra::desk {
namespace {

class InputObserver : public QObject {
 public:
  using QObject::QObject;

  Input last() const { return last_; }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress:
      case QEvent::Shortcut:
        last_ = Input::key;
        break;
      case QEvent::MouseButtonPress:
      case QEvent::TouchBegin:
        last_ = Input::mouse;
        break;
      default:
        break;
    }
    return false;
  }

 private:
  Input last_ = Input::mouse;
};

}  // namespace

Input lastInput() {
  static QPointer<InputObserver> observer;
  if (!observer) {
    observer = new InputObserver(QCoreApplication::instance());
    QCoreApplication::instance()->installEventFilter(observer);
  }
  return observer->last();
}

}  // namespace vemra::desk
