#include "VemraQt/accessibility/AccessibleSection.hpp"

#include <utility>

#include <QAbstractScrollArea>

namespace vemra::qt {

QString AccessibleSection::shownName() const {
  const QAccessibleInterface* heading = isLeaving() ? nullptr : child(0);
  return heading ? heading->text(QAccessible::Name) : QString();
}

QString AccessibleSection::textOf(QAccessible::Text kind) const {
  if (kind != QAccessible::Name) return {};
  QString name = shownName();
  reportedName_ = qHash(name);
  return name;
}

bool AccessibleSection::updateReportedName() {
  if (!reportedName_) return false;
  const std::size_t name = qHash(shownName());
  return std::exchange(*reportedName_, name) != name;
}

QRect AccessibleSection::rect() const {
  QRect whole;
  for (int i = 0; i < childCount(); ++i) {
    if (const QAccessibleInterface* inside = child(i)) whole |= inside->rect();
  }
  return whole;
}

QAccessible::State AccessibleSection::state() const {
  QAccessible::State state;
  state.invalid = isLeaving();
  state.offscreen = !tree().isInViewport(rect());
  state.invisible = isLeaving() || !tree().area().isVisible();
  tree().noteShowing(*const_cast<AccessibleSection*>(this), !state.offscreen);
  return state;
}

QString AccessibleSection::identifier() const {
  return isLeaving() ? QStringLiteral("") : tree().identifierAt(path_);
}

void AccessibleSection::scrollIn() {
  auto* heading = isLeaving() ? nullptr : dynamic_cast<AccessibleObject*>(child(0));
  if (heading) heading->scrollIn();
}

}  // namespace vemra::qt
