#include "apps/desk/window/GoalList.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "apps/desk/window/GoalRow.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <QScrollBar>
#include <QVBoxLayout>

namespace vemra::desk {

GoalList::GoalList(QWidget* parent) : QScrollArea(parent) {
  setObjectName("desk.goals");
  setAccessibleName("Goals");
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  auto* page = new QWidget;
  column_ = new QVBoxLayout(page);
  column_->setContentsMargins(10, 14, 10, 14);
  column_->setSpacing(2);
  QLabel* heading = makeLabel("Goals", TextRole::heading);
  heading->setContentsMargins(10, 0, 10, 6);
  column_->addWidget(heading);
  column_->addStretch(1);
  setWidget(page);
  viewport()->setAutoFillBackground(false);
  page->setAutoFillBackground(false);
}

void GoalList::setGoals(const std::vector<GoalListing>& goals, const std::string& openGoalID) {
  while (rows_.size() > goals.size()) {
    delete rows_.back();
    rows_.pop_back();
  }
  for (std::size_t i = 0; i < goals.size(); ++i) {
    if (i == rows_.size()) {
      auto* row = new GoalRow;
      column_->insertWidget(column_->count() - 1, row);
      rows_.push_back(row);
      connect(row, &QPushButton::clicked, this, [this, row] {
        // A copy: who hears of it may give the row another goal.
        Q_EMIT goalChosen(std::string(row->goalID()));
      });
    }
    GoalRow* const row = rows_[i];
    row->setTitle(fromUTF8(goals[i].title));
    row->setGoalID(goals[i].id);
    row->setObjectName("desk.goal." + fromUTF8(goals[i].id));
    if (text::equal(goals[i].id, openGoalID)) row->setChecked(true);
  }
}

}  // namespace vemra::desk
