// The positions of the list's rows, and their widgets.

#include "apps/desk/window/AccessibleGoals.hpp"
#include "apps/desk/window/GoalList.hpp"
#include "apps/desk/window/GoalRow.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>

#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace vemra::desk {
namespace {

constexpr QMargins margins(10, 14, 10, 14);
constexpr int gap = 2;
constexpr int keepMargin = 200;  // rows this near to the viewport keep their widgets

}  // namespace

QRect GoalList::rowRect(std::size_t index) const {
  return {margins.left(), top() - verticalScrollBar()->value() + heights_.topOnPage(index),
          rowWidth(), heights_.height(index)};
}

/// The distance from the viewport's top to the first row when the list is not scrolled.
int GoalList::top() const {
  return margins.top() + heading_->height() + gap;
}

int GoalList::rowWidth() const {
  return std::max(1, viewport()->width() - margins.left() - margins.right());
}

/// Measures again after a change of width, font or style.
void GoalList::measureAnew() {
  heading_->resize(rowWidth(), heading_->heightForWidth(rowWidth()));
  forgetHeights();
}

/// Marks every height as unmeasured; the row at the top of the viewport stays there.
void GoalList::forgetHeights() {
  const QScopedValueRollback<bool> inside(layingOut_, true);
  const int scroll = verticalScrollBar()->value();
  const bool isScrolled = scroll > top() && heights_.count() > 0;
  const std::size_t anchor = isScrolled ? heights_.rowAt(scroll - top()) : 0;
  const int offset = isScrolled ? scroll - heights_.topOnPage(anchor) : 0;
  heights_.reset(goals_.size(), gap);
  heights_.setEstimate(measured_->minimumSizeHint().height());
  setScrollRange();
  if (isScrolled && anchor < goals_.size()) {
    verticalScrollBar()->setValue(heights_.topOnPage(anchor) + offset);
  }
}

/// Measures the rows in view, which may push other rows out of view, and places the rows. The row
/// at the top of the viewport stays in place while rows above it are measured.
void GoalList::layOut() {
  if (layingOut_) return;
  const QScopedValueRollback<bool> inside(layingOut_, true);
  setScrollRange();
  const bool isAtEnd = verticalScrollBar()->value() == verticalScrollBar()->maximum() &&
                       verticalScrollBar()->maximum() > 0;
  Range range;
  if (!goals_.empty()) {
    const int scroll = verticalScrollBar()->value();
    const std::size_t anchor = heights_.rowAt(scroll - top());
    const int offset = scroll - heights_.topOnPage(anchor);
    for (range = rowsInView();;) {
      measure(range);
      setScrollRange();
      verticalScrollBar()->setValue(isAtEnd ? verticalScrollBar()->maximum()
                                            : heights_.topOnPage(anchor) + offset);
      const Range next = rowsInView();
      if (next.first >= range.first && next.last <= range.last) break;
      range = {std::min(range.first, next.first), std::max(range.last, next.last)};
    }
  }
  heading_->move(margins.left(), margins.top() - verticalScrollBar()->value());
  placeRows(range);
}

GoalList::Range GoalList::rowsInView() const {
  const int from = verticalScrollBar()->value() - top();
  return {heights_.rowAt(from - keepMargin),
          heights_.rowAt(from + viewport()->height() + keepMargin) + 1};
}

void GoalList::measure(const Range& range) {
  for (std::size_t index = range.first; index < range.last; ++index) {
    measured_->setTitle(fromUTF8(goals_[index].title));
    heights_.setHeight(index, measured_->heightForWidth(rowWidth()));
  }
}

void GoalList::setScrollRange() {
  QScrollBar& bar = *verticalScrollBar();
  const int content = goals_.empty() ? 0 : top() + heights_.totalOnPage() + margins.bottom();
  bar.setRange(0, std::max(0, content - viewport()->height()));
  bar.setPageStep(viewport()->height());
  bar.setSingleStep(heights_.estimate() / 2);
}

void GoalList::placeRows(const Range& range) {
  const auto isWanted = [&](std::size_t index) {
    return (index >= range.first && index < range.last) || isPinned(index);
  };
  for (auto entry = rows_.begin(); entry != rows_.end();) {
    if (isWanted(entry->first)) {
      ++entry;
      continue;
    }
    recycle(entry++);
  }
  for (std::size_t index = range.first; index < range.last; ++index) makeRow(index);
  if (open_) makeRow(*open_);
  for (const auto& [index, row] : rows_) {
    // The list has one Tab stop: the open goal, or else the first goal.
    const bool isStop = open_ ? index == *open_ : index == 0;
    if (!row->hasFocus()) row->setFocusPolicy(isStop ? Qt::StrongFocus : Qt::ClickFocus);
    row->setGeometry(rowRect(index));
    row->show();
  }
}

/// Keeps the widget for another row: it may be the widget whose signal is being handled.
void GoalList::recycle(std::map<std::size_t, GoalRow*>::iterator entry) {
  entry->second->hide();
  spare_.push_back(entry->second);
  rows_.erase(entry);
}

/// Whether the row keeps its widget: a row that a person is using, and the open row, so that the
/// Tab key can reach it.
bool GoalList::isPinned(std::size_t index) const {
  const GoalRow* shown = row(index);
  return index == open_ || (shown && (shown->isDown() || window()->focusWidget() == shown));
}

GoalRow& GoalList::makeRow(std::size_t index) {
  GoalRow*& row = rows_[index];
  if (row) return *row;
  if (spare_.empty()) {
    row = new GoalRow(viewport());
    row->installEventFilter(this);
    connect(row, &QPushButton::clicked, this, [this, row = row] {
      open_ = indexOf(*row);
      column().announce();
      // Emit a copy of the id: a slot may give the row another goal.
      if (open_) Q_EMIT goalChosen(std::string(row->goalID()));
      if (!moving_) Q_EMIT goalPressed();
    });
  } else {
    row = spare_.back();
    spare_.pop_back();
  }
  fillRow(*row, index);
  return *row;
}

void GoalList::fillRow(GoalRow& row, std::size_t index) const {
  row.setTitle(fromUTF8(goals_[index].title));
  row.setGoalID(goals_[index].id);
  const QString name = "desk.goal." + fromUTF8(goals_[index].id);
  if (row.objectName() != name) row.setObjectName(name);
  if (row.isChecked() == (index == open_)) return;
  row.setAutoExclusive(index == open_);  // Qt keeps one button of the group checked
  row.setChecked(index == open_);
  row.setAutoExclusive(true);
}

}  // namespace vemra::desk
