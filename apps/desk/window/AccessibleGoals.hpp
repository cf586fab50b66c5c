#pragma once

#include <QWidget>

namespace vemra::desk {

class ListedGoals;

/// The viewport of a list of goals. Assistive technology sees the heading and every goal below it,
/// with or without a widget, as radio buttons; the open goal is checked.
///
/// A goal without a widget has a name, a state and a position (estimated if it has never been in
/// view); `Press` opens it, `SetFocus` scrolls it into view and gives it the focus. Clients get an
/// event when the number of goals, or the name or state of a goal, differs from the last
/// announcement, and when another goal is the selected one.
class GoalColumn : public QWidget {
  Q_OBJECT

 public:
  explicit GoalColumn(ListedGoals& list);
  /// The list; nullptr when it is being destroyed.
  ListedGoals* list() const { return list_; }
  void forgetList() { list_ = nullptr; }
  /// Announces the changes since the last announcement. Call it when the list shows other goals, or
  /// another goal is open. Costs a step for each goal without a widget that a client has asked for.
  void announce();

 private:
  ListedGoals* list_;
};

}  // namespace vemra::desk
