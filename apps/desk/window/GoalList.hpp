#pragma once

#include "VemraPlatform/page/RowHeights.hpp"
#include "apps/desk/window/ListedGoals.hpp"

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QString>

namespace vemra::desk {

class GoalColumn;

/// The goals of the store in a column; one of them is open.
///
/// The Up and Down keys move to the next goal and open it, Home and End open the first and the last
/// goal, and typing the beginning of a title opens the next goal with it; the list is one stop of
/// the Tab key. Only the rows near the viewport, the open row and the focused row have a widget.
/// Assistive technology sees all goals (`AccessibleGoals`).
class GoalList : public QAbstractScrollArea, public ListedGoals {
  Q_OBJECT

 public:
  explicit GoalList(QWidget* parent = nullptr);
  ~GoalList() override;

  /// Shows these goals, and the goal with that id as open. Rows that stay keep the focus. Scrolls
  /// to the open goal when it differs from the previous one.
  void setGoals(const std::vector<GoalListing>& goals, const std::string& openGoalID);

  const std::vector<GoalListing>& goals() const override { return goals_; }
  QLabel& heading() const override { return *heading_; }
  std::optional<std::size_t> openIndex() const override { return open_; }
  GoalRow* row(std::size_t index) const override;
  std::optional<std::size_t> indexOf(const GoalRow& row) const override;
  QRect rowRect(std::size_t index) const override;
  void choose(std::size_t index) override;
  void focusRow(std::size_t index) override;

 Q_SIGNALS:
  void goalChosen(const std::string& goalID);
  /// Emitted when the user presses a goal, in contrast to moving on to it with the keyboard.
  void goalPressed();

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  struct Range {
    std::size_t first = 0, last = 0;  ///< `last` excluded
  };

  GoalColumn& column() const;
  int top() const;
  int rowWidth() const;
  void measureAnew();
  void forgetHeights();
  void layOut();
  Range rowsInView() const;
  void measure(const Range& range);
  void setScrollRange();
  void placeRows(const Range& range);
  bool isPinned(std::size_t index) const;
  GoalRow& makeRow(std::size_t index);
  void fillRow(GoalRow& row, std::size_t index) const;
  void recycle(std::map<std::size_t, GoalRow*>::iterator entry);
  void showOpen();
  void scrollTo(std::size_t index);
  bool handleKey(std::size_t index, int key);
  bool handleText(std::size_t index, const QString& text);
  void goTo(std::size_t index);

  std::vector<GoalListing> goals_;
  std::optional<std::size_t> open_;
  page::RowHeights heights_;
  QLabel* heading_;
  std::map<std::size_t, GoalRow*> rows_;
  std::vector<GoalRow*> spare_;
  GoalRow* measured_;           ///< never shown: used to measure the height of rows
  QString typed_;               ///< the beginning of a title
  QElapsedTimer sinceTyped_;    ///< its last letter
  bool wantsOpenSeen_ = false;  ///< scroll to the open goal once the list has its size
  bool layingOut_ = false;
  bool moving_ = false;  ///< a key moves on to another goal
};

}  // namespace vemra::desk
