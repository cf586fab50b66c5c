#include "apps/desk/window/AlertFrame.hpp"

#include <QAccessibleWidget>

namespace vemra::desk {
namespace {

QAccessibleInterface* makeAlert(const QString&, QObject* object) {
  auto* frame = qobject_cast<AlertFrame*>(object);
  return frame != nullptr ? new QAccessibleWidget(frame, QAccessible::Notification) : nullptr;
}

}  // namespace

AlertFrame::AlertFrame(QWidget* parent) : QFrame(parent) {
  static const bool installed = (QAccessible::installFactory(makeAlert), true);
  static_cast<void>(installed);
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::AlternateBase);
}

void AlertFrame::announce(const QString& message) {
  if (!isHidden() && accessibleName() == message) return;
  setAccessibleName(message);
  show();
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void AlertFrame::rename(const QString& message) {
  if (accessibleName() == message) return;
  setAccessibleName(message);
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

Announcement::Announcement(QWidget* parent) : AlertFrame(parent) {
  setFrameShape(QFrame::NoFrame);
  setAutoFillBackground(false);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  resize(1, 1);
  hide();
}

void Announcement::announce(const QString& message) {
  hide();
  AlertFrame::announce(message);
}

}  // namespace vemra::desk
