#include "apps/desk/window/GoalPositions.hpp"

#include <QAccessibleInterface>

namespace vemra::desk {

GoalPositions::GoalPositions(const QAccessibleInterface& list) : list_(list) {
  qt::atspi::addIdentifierSource(*this);
}

GoalPositions::~GoalPositions() {
  qt::atspi::removeIdentifierSource(*this);
}

QMap<QString, QString> GoalPositions::attributes(QAccessible::Id goal) const {
  const int place = list_.indexOfChild(QAccessible::accessibleInterface(goal));
  if (place < 1) return {};  // the heading, or no child of the list
  return {{QStringLiteral("posinset"), QString::number(place)},
          {QStringLiteral("setsize"), QString::number(list_.childCount() - 1)}};
}

}  // namespace vemra::desk
