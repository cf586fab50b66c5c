#pragma once

#include <QWidget>

namespace vemra::desk {

/// A bar above the page with the way to the goals, while they have no room beside it.
class GoalsBar : public QWidget {
  Q_OBJECT

 public:
  explicit GoalsBar(QWidget* parent = nullptr);

 Q_SIGNALS:
  void goalsWanted();
};

}  // namespace vemra::desk
