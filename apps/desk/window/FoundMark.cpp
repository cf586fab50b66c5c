#include "apps/desk/window/FoundMark.hpp"

#include "VemraQt/PageRows.hpp"
#include "VemraQt/ViewWidget.hpp"

#include <QEvent>
#include <QPainter>
#include <QScrollBar>

namespace vemra::desk {

FoundMark::FoundMark(qt::ViewWidget& screen, ui::NodeID list, std::size_t index)
    : QWidget(&screen), screen_(screen), list_(list), index_(index) {
  setObjectName("desk.find.mark");
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  const QScrollBar* bar = screen.verticalScrollBar();
  connect(bar, &QScrollBar::valueChanged, this, &FoundMark::follow);
  connect(bar, &QScrollBar::rangeChanged, this, &FoundMark::follow);
  screen.viewport()->installEventFilter(this);
  follow();
}

void FoundMark::follow() {
  constexpr int air = 4;
  const QRect row = qt::rowFrame(screen_, list_, index_);
  const QRect view = screen_.viewport()->geometry();
  if (row.isEmpty()) {
    hide();
    return;
  }
  const QRect seen =
      row.translated(view.topLeft()).adjusted(-air, -air, air, air).intersected(view);
  setGeometry(seen);
  setVisible(!seen.isEmpty());
  update();
}

bool FoundMark::eventFilter(QObject*, QEvent* event) {
  // The page lays itself out after the event.
  if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) {
    QMetaObject::invokeMethod(this, &FoundMark::follow, Qt::QueuedConnection);
  }
  return false;
}

void FoundMark::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor ink = palette().color(QPalette::Highlight);
  painter.setPen(QPen(ink, 2));
  ink.setAlphaF(0.12F);
  painter.setBrush(ink);
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
}

}  // namespace vemra::desk
