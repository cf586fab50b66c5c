#pragma once

#include "apps/desk/store/GoalStore.hpp"

#include <string>
#include <vector>

#include <QScrollArea>

class QVBoxLayout;

namespace vemra::desk {

class GoalRow;

/// The goals of the store, one below the other; one of them is open.
///
/// The arrow keys go from goal to goal and open it; the list is one stop of the Tab key.
class GoalList : public QScrollArea {
  Q_OBJECT

 public:
  explicit GoalList(QWidget* parent = nullptr);

  /// Shows these goals, and the one of that id as the open one. Rows that stay keep the focus.
  void setGoals(const std::vector<GoalListing>& goals, const std::string& openGoalID);

 Q_SIGNALS:
  void goalChosen(const std::string& goalID);

 private:
  QVBoxLayout* column_;
  std::vector<GoalRow*> rows_;
};

}  // namespace vemra::desk
