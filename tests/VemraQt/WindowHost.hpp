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

/// A result with that many people, named and reasoned in turn in every way the screen knows.
Result resultWith(std::size_t people);

/// What was recorded of that subject, in place of an earlier record that is not there any more.
GoalOutcomeDTO correctedOutcome(const std::string& subjectRef, const std::string& note);

/// A host without a store around the goal screen in a window: it writes down what it is asked,
/// appends an outcome for each recording, and shows the new snapshot at once.
class WindowHost {
 public:
  explicit WindowHost(Result result, QSize size = QSize(720, 800));

  GoalResultView view();
  /// The result changes at its source, and the host shows it.
  void change(const std::function<void(Result&)>& edit);
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
  std::function<void(const std::string&)> onLog;  ///< told of each entry, when there is one
  qt::ViewWidget widget;
};

/// The middle of what can be seen of a widget; none when nothing can.
std::optional<QPoint> seenPoint(const QWidget& widget);

/// Scrolls by a turn of the mouse wheel, over the widget's middle; negative: further down.
void wheel(QWidget& over, int notches);

}  // namespace vemra::qttest
