#include "apps/desk/window/GoalsBar.hpp"

#include "apps/desk/window/FocusRing.hpp"
#include "apps/desk/window/Localized.hpp"

#include <QHBoxLayout>

namespace vemra::desk {

GoalsBar::GoalsBar(QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(8, 4, 8, 4);
  auto* goals = new QuietButton(localized("Goals"));
  goals->setObjectName("desk.goals.show");
  goals->setArrowType(isRightToLeft() ? Qt::RightArrow : Qt::LeftArrow);
  goals->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  connect(goals, &QToolButton::clicked, this, &GoalsBar::goalsWanted);
  row->addWidget(goals);
  row->addStretch(1);
  hide();
}

}  // namespace vemra::desk
