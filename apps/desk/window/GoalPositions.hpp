#pragma once

#include "VemraQt/atspi/IdentifierSource.hpp"

namespace vemra::desk {

/// Tells assistive technology the position of a goal in the list of goals, "3 of 12", while it
/// lives. Without it a screen reader counts the children of the list, and the first one is the
/// heading.
class GoalPositions final : public qt::atspi::IdentifierSource {
 public:
  /// - Parameter list: its children are the heading and then the goals; it must outlive this.
  explicit GoalPositions(const QAccessibleInterface& list);
  ~GoalPositions();
  GoalPositions(const GoalPositions&) = delete;
  GoalPositions& operator=(const GoalPositions&) = delete;

  QMap<QString, QString> attributes(QAccessible::Id goal) const override;

  // A goal has no identifier, and is not on a page.
  QString identifier(QAccessible::Id) const override { return {}; }
  bool isLandmark(QAccessible::Id) const override { return false; }
  QList<QAccessible::Id> find(const QString&) override { return {}; }
  bool findByRole(const QAccessibleInterface&, const qt::atspi::RoleTest&,
                  const qt::atspi::FoundObject&) override {
    return false;
  }
  bool scrollIn(QAccessible::Id) override { return false; }

 private:
  const QAccessibleInterface& list_;
};

}  // namespace vemra::desk
