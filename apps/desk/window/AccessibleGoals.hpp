#pragma once

#include <QWidget>

namespace vemra::desk {

class GoalList;

/// The viewport of a list of goals. To assistive technology it is the heading and every goal below it,
/// with a widget or without: the goals are radio buttons, of which the open one is checked.
///
/// A goal without a widget has its name, its state and its place (estimated where it has never been
/// in view); `Press` opens it, `SetFocus` scrolls it in and gives it the focus. A client gets an
/// event when the number of goals, or the name or state of a goal, differs from what this class
/// announced last.
class GoalColumn : public QWidget {
  Q_OBJECT

 public:
  explicit GoalColumn(GoalList& list);
  /// The list; nullptr when it is being destroyed.
  GoalList* list() const { return list_; }
  void forgetList() { list_ = nullptr; }
  /// Announces what differs from the last announcement. Call it when the list shows other
  /// goals, or another goal is open. Costs a step for each goal without a widget that a client knows.
  void announce();

 private:
  GoalList* list_;
};

}  // namespace vemra::desk
