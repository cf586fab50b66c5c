#include "apps/desk/window/PathGraph.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>
#include <cmath>

#include <QEvent>
#include <QLabel>
#include <QPainter>

namespace vemra::desk {
namespace {

constexpr double radius = 7;
constexpr double swing = 22;  // stars alternate left and right, like a constellation
constexpr int above = 8;
constexpr int gapBetweenNames = 34;
constexpr int leastName = 40;

QString inWords(const std::vector<QString>& names) {
  QString words;
  for (const QString& name : names) {
    if (!words.isEmpty()) words += localized(", then ");
    words += name;
  }
  return words;
}

}  // namespace

PathGraph::PathGraph(std::vector<QString> names, QWidget* parent)
    : PathGraph(names, names.empty() ? QString() : names.back(), PathEnd::here, parent) {}

PathGraph::PathGraph(std::vector<QString> names, const QString& target, PathEnd end,
                     QWidget* parent)
    : QWidget(parent), end_(end) {
  setObjectName("desk.path");
  for (QString& name : names) {
    name = firstPiece(name);
    QLabel* label = makeLabel(name, TextRole::body);
    label->setParent(this);
    names_.push_back(label);
  }
  setAccessibleName(names.empty() ? localized("A path without people")
                                  : localized("Path to %1").arg(firstPiece(target)));
  setAccessibleDescription(inWords(names));
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);  // see `RoleLabel`
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

std::vector<PathGraph::Star> PathGraph::layout(int width, double& height) const {
  std::vector<Star> stars;
  const bool isMirrored = isRightToLeft();
  const int line = fontMetrics().height();
  int top = above;
  for (std::size_t i = 0; i < names_.size(); ++i) {
    const double x = radius + 4 + (i % 2 == 0 ? 0 : swing);
    const int nameLeft = static_cast<int>(x + radius + 10);
    const int nameWidth = std::max(leastName, width - nameLeft - 4);
    const int nameHeight = std::max(names_[i]->heightForWidth(nameWidth), line);
    const QRect name(isMirrored ? width - nameLeft - nameWidth : nameLeft, top, nameWidth,
                     nameHeight);
    stars.push_back({{isMirrored ? width - x : x, top + line / 2.0}, name});
    top += nameHeight + gapBetweenNames;
  }
  height = names_.empty() ? 0 : top - gapBetweenNames + above;
  return stars;
}

int PathGraph::heightForWidth(int width) const {
  double height = 0;
  layout(width, height);
  return static_cast<int>(std::ceil(height));
}

void PathGraph::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) updateGeometry();
  placeNames();
}

void PathGraph::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  placeNames();
}

void PathGraph::placeNames() {
  double height = 0;
  const std::vector<Star> stars = layout(width(), height);
  for (std::size_t i = 0; i < stars.size(); ++i) names_[i]->setGeometry(stars[i].name);
}

void PathGraph::paintEvent(QPaintEvent*) {
  double height = 0;
  const std::vector<Star> stars = layout(width(), height);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor quiet = inkOf(ui::ForegroundStyle::tertiary, palette());
  const QColor bright = palette().color(QPalette::Highlight);
  painter.setPen(QPen(quiet, 1.5));
  for (std::size_t i = 1; i < stars.size(); ++i) {
    painter.drawLine(stars[i - 1].centre, stars[i].centre);
  }
  for (std::size_t i = 0; i < stars.size(); ++i) {
    const bool isTarget = end_ == PathEnd::here && i + 1 == stars.size();
    painter.setPen(QPen(isTarget ? bright : quiet, 2));
    painter.setBrush(isTarget ? bright : palette().color(QPalette::Base));
    painter.drawEllipse(stars[i].centre, radius, radius);
  }
}

}  // namespace vemra::desk
