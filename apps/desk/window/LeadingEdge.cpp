#include "apps/desk/window/LeadingEdge.hpp"

#include <QEvent>
#include <QLabel>

namespace vemra::desk {
namespace {

void align(QLabel& label) {
  const bool isMirrored = label.layoutDirection() == Qt::RightToLeft;
  label.setAlignment((isMirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute |
                     Qt::AlignVCenter);
}

class LayoutObserver final : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* object, QEvent* event) override {
    auto* label = qobject_cast<QLabel*>(object);
    if (label && event->type() == QEvent::LayoutDirectionChange) align(*label);
    return false;
  }
};

}  // namespace

void alignAtLeadingEdge(QLabel& label) {
  align(label);
  label.installEventFilter(new LayoutObserver(&label));
}

}  // namespace vemra::desk
