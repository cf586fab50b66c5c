#pragma once

#include "apps/desk/window/GoalRow.hpp"

#include <QAccessibleWidget>

namespace vemra::desk {

/// A goal with a widget, for assistive technology: the same actions as without. Qt's own for such a button would check it
/// without opening its goal.
class AccessibleGoalRow final : public QAccessibleWidget {
 public:
  explicit AccessibleGoalRow(GoalRow& row) : QAccessibleWidget(&row, QAccessible::RadioButton) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = state.selectable = true;
    state.checked = state.selected = row().isChecked();
    return state;
  }
  QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  void doAction(const QString& action) override {
    if (action == pressAction()) {
      row().click();
    } else {
      QAccessibleWidget::doAction(action);
    }
  }

 private:
  GoalRow& row() const { return *static_cast<GoalRow*>(widget()); }
};

}  // namespace vemra::desk
