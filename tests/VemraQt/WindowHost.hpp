#pragma once

#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraQt/ViewWidget.hpp"

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <QWidget>

namespace vemra::qttest {

using Result = GetGoalSnapshotResponse;
using People = std::vector<GoalPersonCandidateDTO>;

/// A result with that many people, whose names and reasons go through all variants of the screen.
Result resultWith(std::size_t people);

/// Sets the outcome of that subject, and removes its earlier one.
GoalOutcomeDTO correctedOutcome(const std::string& subjectRef, const std::string& note);

/// A host without a store around the goal screen in a window: it logs its calls, appends an outcome
/// for each recording, and shows the new snapshot at once.
class WindowHost {
 public:
  explicit WindowHost(Result result, QSize size = QSize(720, 800));

  GoalResultView view();
  /// Changes the result as another source would, and shows it.
  void change(const std::function<void(Result&)>& edit);
  void changePeople(const std::function<void(People&)>& edit);
  void erasePerson(std::size_t index);
  void show() { widget.setRoot(view()); }

  /// The widget that shows the element now; nullptr when it has none.
  QWidget* find(const std::string& identifier) const;
  /// The same, as the widget class the test needs; fails the test when it is not there.
  template <class Widget>
  Widget& get(const std::string& identifier) const {
    auto* found = dynamic_cast<Widget*>(find(identifier));
    if (!found) throw std::runtime_error("no such widget on the page: " + identifier);
    return *found;
  }
  void press(const std::string& identifier) const;
  /// The text of every visible label and button, from top to bottom.
  std::vector<std::string> visibleTexts() const;

  void note(const std::string& entry);

  Result result;
  std::vector<std::string> log;
  std::function<void(const std::string&)> onLog;  ///< called with each entry, if set
  qt::ViewWidget widget;
};

/// The middle of the visible part of a widget; none when it is out of view.
std::optional<QPoint> seenPoint(const QWidget& widget);

/// Scrolls by a turn of the mouse wheel, over the widget's middle; negative: further down.
void wheel(QWidget& over, int notches);

}  // namespace vemra::qttest
