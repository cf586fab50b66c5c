#include "apps/desk/window/PathGraph.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>
#include <cmath>

#include <QPainter>

namespace vemra::desk {
namespace {

constexpr double radius = 7;
constexpr double swing = 22;  // stars alternate left and right, like a constellation
constexpr double gapBetweenNames = 34;
constexpr int nameFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap | Qt::TextWrapAnywhere;

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
    : QWidget(parent), names_(std::move(names)), end_(end) {
  setObjectName("desk.path");
  for (QString& name : names_) name = firstPiece(name);
  setAccessibleName(names_.empty() ? localized("A path over nobody")
                                   : localized("Path to %1").arg(firstPiece(target)));
  setAccessibleDescription(inWords(names_));
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

std::vector<PathGraph::Star> PathGraph::layout(int width, double& height) const {
  std::vector<Star> stars;
  double top = 8;
  for (std::size_t i = 0; i < names_.size(); ++i) {
    const double x = radius + 4 + (i % 2 == 0 ? 0 : swing);
    const double nameLeft = x + radius + 10;
    const double nameWidth = std::max(40.0, width - nameLeft - 4);
    const QRectF text =
        QFontMetricsF(font()).boundingRect(QRectF(0, 0, nameWidth, 100'000), nameFlags, names_[i]);
    const double nameHeight = std::max(text.height(), QFontMetricsF(font()).height());
    const double firstLine = QFontMetricsF(font()).height() / 2;
    stars.push_back({{x, top + firstLine}, {nameLeft, top, nameWidth, nameHeight}});
    top += nameHeight + gapBetweenNames;
  }
  height = names_.empty() ? 0 : top - gapBetweenNames + 8;
  return stars;
}

int PathGraph::heightForWidth(int width) const {
  double height = 0;
  layout(width, height);
  return static_cast<int>(std::ceil(height));
}

void PathGraph::paintEvent(QPaintEvent*) {
  double height = 0;
  std::vector<Star> stars = layout(width(), height);
  const bool mirrored = layoutDirection() == Qt::RightToLeft;
  if (mirrored) {
    for (Star& star : stars) {
      star.centre.setX(width() - star.centre.x());
      star.name.moveLeft(width() - star.name.right());
    }
  }
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
    painter.setPen(palette().color(QPalette::WindowText));
    const int side = mirrored ? Qt::AlignRight : Qt::AlignLeft;
    const int direction =
        names_[i].isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
    painter.drawText(stars[i].name,
                     (nameFlags & ~Qt::AlignLeft) | side | Qt::AlignAbsolute | direction,
                     names_[i]);
  }
}

}  // namespace vemra::desk
