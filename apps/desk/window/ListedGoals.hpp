#pragma once

#include "apps/desk/store/GoalStore.hpp"

#include <cstddef>
#include <optional>
#include <vector>

#include <QRect>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace vemra::desk {

class GoalRow;

/// A list of goals as assistive technology uses it; `index` counts the goals from the top.
class ListedGoals {
 public:
  ListedGoals(const ListedGoals&) = delete;
  ListedGoals& operator=(const ListedGoals&) = delete;

  virtual const std::vector<GoalListing>& goals() const = 0;
  virtual QLabel& heading() const = 0;
  virtual std::optional<std::size_t> openIndex() const = 0;
  /// The widget of a row; nullptr while it has none.
  virtual GoalRow* row(std::size_t index) const = 0;
  virtual std::optional<std::size_t> indexOf(const GoalRow& row) const = 0;
  /// The frame of a row in the viewport; estimated if the row has never been there.
  virtual QRect rowRect(std::size_t index) const = 0;
  /// Opens a goal, like a click.
  virtual void choose(std::size_t index) = 0;
  /// Scrolls a row into view and gives it the focus.
  virtual void focusRow(std::size_t index) = 0;

 protected:
  ListedGoals() = default;
  ~ListedGoals() = default;
};

}  // namespace vemra::desk
