#pragma once

#include "VemraQt/ViewWidget.hpp"

namespace vemra::desk {

/// A screen whose lines have at most about 75 characters, however wide the window is. The scroll
/// bar stays at the edge of the window.
class GoalPage : public qt::ViewWidget {
  Q_OBJECT

 public:
  GoalPage();

 protected:
  bool event(QEvent* event) override;

 private:
  void limitLines();
};

}  // namespace vemra::desk
