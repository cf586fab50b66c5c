#include "apps/desk/window/GoalsBar.hpp"

#include "apps/desk/window/FocusRing.hpp"
#include "apps/desk/window/Localized.hpp"

#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>

namespace vemra::desk {
namespace {

/// A title behind an arrow that points to the leading edge, as large as the title's letters. Qt's
/// own arrow of a tool button keeps its size and stays at the left from right to left.
class BackButton : public QuietButton {
 public:
  using QuietButton::QuietButton;

  QSize sizeHint() const override { return QuietButton::sizeHint() + QSize(arrowRoom(), 0); }

 protected:
  QRect titleRect() const override {
    return QStyle::visualRect(layoutDirection(), rect(), rect().adjusted(arrowRoom(), 0, 0, 0));
  }

  void drawBesideTitle(QPainter& painter) const override {
    const double half = fontMetrics().xHeight() / 2.0;
    const double step = isRightToLeft() ? half : -half;
    QRect room(0, 0, arrowRoom() + 4, height());
    room = QStyle::visualRect(layoutDirection(), rect(), room);
    const QPointF tip = QRectF(room).center() + QPointF(step / 2, 0);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::ButtonText), 1.5));
    painter.drawPolyline(QPolygonF{tip + QPointF(-step, -half), tip, tip + QPointF(-step, half)});
  }

 private:
  int arrowRoom() const { return fontMetrics().height() / 2 + 4; }
};

}  // namespace

GoalsBar::GoalsBar(QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(8, 4, 8, 4);
  auto* goals = new BackButton(localized("Goals"));
  goals->setObjectName("desk.goals.show");
  goals->setToolButtonStyle(Qt::ToolButtonTextOnly);
  connect(goals, &QToolButton::clicked, this, &GoalsBar::goalsWanted);
  row->addWidget(goals);
  row->addStretch(1);
  hide();
}

}  // namespace vemra::desk
