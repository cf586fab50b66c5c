#include "benchmarks/screen/Candidate.hpp"

#include <QCoreApplication>
#include <QWheelEvent>

namespace vemra::bench {

void turnWheelOver(QObject& widget) {
  const QPointF middle(windowSize.width() / 2.0, windowSize.height() / 2.0);
  QWheelEvent event(middle, middle, QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&widget, &event);
}

}  // namespace vemra::bench
