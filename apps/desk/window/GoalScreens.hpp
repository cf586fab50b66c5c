#pragma once

#include "VemraPlatform/ui/View.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"
#include "apps/desk/window/DeskDisplay.hpp"
#include "apps/desk/window/GoalPage.hpp"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <QStringList>

namespace vemra::desk {

class Pages;

/// The screens of the goals that were opened: one `GoalPage` for each goal. A screen that another
/// goal replaces stays alive, with its open editors and its scroll position.
///
/// Beyond a number of screens, those without open editors are destroyed, the one that was shown
/// longest ago first. A screen with an open editor is never destroyed, so typed text is not lost.
class GoalScreens {
 public:
  /// - Parameter pages: where the screens are shown; outlives this object.
  /// - Parameter most: the number of screens that may stay, at least 1.
  explicit GoalScreens(Pages& pages, std::size_t most = 8);

  /// Makes a view for the graph of a screen.
  using MakeView = std::function<ui::View(ui::ViewGraph& graph)>;

  /// Shows a goal's view, in the screen that the goal has already, if it has one.
  void show(const LoadedGoal& goal, const MakeView& makeView);
  /// Shows the screen again that was shown last.
  void showAgain();
  /// Shows that goal's screen as it was shown last. Returns its goal; null when there is no screen.
  const LoadedGoal* showAgain(const std::string& goalID);
  /// The screen that was shown last; an empty one before the first.
  GoalPage& current() const;
  /// The goal of that screen, as it was shown last; null for an empty screen.
  const LoadedGoal* currentGoal() const;
  std::size_t count() const { return screens_.size(); }

  /// One line for each open editor of any goal: the outcome's subject, and the goal's title.
  QStringList drafts() const;
  /// A control of an open editor.
  struct Draft {
    std::string goalID;
    GoalPage* page;          ///< the screen of the goal
    std::string identifier;  ///< of the control
  };
  /// The control of an open editor that has the focus; else the note of the first open editor in
  /// the order of `drafts`; nil when no editor is open.
  std::optional<Draft> draftToFinish() const;
  /// Removes every screen, with its editors.
  void clear();

 private:
  struct Screen {
    GoalPage* widget;
    std::optional<LoadedGoal> goal;  ///< as it was shown last; nil for an empty screen
  };

  void removeSome();

  Pages& pages_;
  std::size_t most_;
  std::vector<Screen> screens_;  ///< the one that was shown last is the first
};

}  // namespace vemra::desk
