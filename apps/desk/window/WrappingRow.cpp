#include "apps/desk/window/WrappingRow.hpp"

#include <algorithm>

#include <QBoxLayout>
#include <QStyle>
#include <QWidget>

namespace vemra::desk {

WrappingRow::WrappingRow(QWidget* parent) : QLayout(parent) {
  setContentsMargins(0, 0, 0, 0);
}

WrappingRow::~WrappingRow() = default;

void WrappingRow::addItem(QLayoutItem* item) {
  items_.emplace_back(item);
  invalidate();
}

QLayoutItem* WrappingRow::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* WrappingRow::takeAt(int index) {
  if (itemAt(index) == nullptr) return nullptr;
  const auto place = items_.begin() + index;
  QLayoutItem* item = place->release();
  items_.erase(place);
  invalidate();
  return item;
}

/// A style may have no spacing of its own, which Qt reports as -1.
int WrappingRow::gap() const {
  return std::max(spacing(), 0);
}

int WrappingRow::heightForWidth(int width) const {
  return arrange({0, 0, width, 0}, Moves::no);
}

QSize WrappingRow::sizeHint() const {
  QSize size(0, 0);
  for (const auto& item : items_) {
    if (item->isEmpty()) continue;
    const QSize wanted = item->sizeHint();
    if (size.width() > 0) size.rwidth() += gap();
    size = {size.width() + wanted.width(), std::max(size.height(), wanted.height())};
  }
  return size;
}

QSize WrappingRow::minimumSize() const {
  QSize size(0, 0);
  for (const auto& item : items_) {
    if (!item->isEmpty()) size = size.expandedTo(item->minimumSize());
  }
  return size;
}

void WrappingRow::setGeometry(const QRect& area) {
  QLayout::setGeometry(area);
  arrange(area, Moves::yes);
}

/// Returns the height of all lines.
int WrappingRow::arrange(const QRect& area, Moves moves) const {
  const Qt::LayoutDirection direction =
      parentWidget() == nullptr ? Qt::LeftToRight : parentWidget()->layoutDirection();
  int x = 0;
  int y = 0;
  int lineHeight = 0;
  for (const auto& item : items_) {
    if (item->isEmpty()) continue;
    const QSize wanted = item->sizeHint();
    const int width = std::min(wanted.width(), area.width());
    const bool isHigher = width < wanted.width() && item->hasHeightForWidth();
    const int height = isHigher ? item->heightForWidth(width) : wanted.height();
    if (x > 0 && x + width > area.width()) {
      x = 0;
      y += lineHeight + gap();
      lineHeight = 0;
    }
    const QRect place(area.x() + x, area.y() + y, width, height);
    if (moves == Moves::yes) item->setGeometry(QStyle::visualRect(direction, area, place));
    x += width + gap();
    lineHeight = std::max(lineHeight, height);
  }
  return y + lineHeight;
}

void placeBesideOrBelow(QBoxLayout& content, WrappingRow& row, int width, int least) {
  const bool isNarrow = width < row.sizeHint().width() + least;
  content.setDirection(isNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  content.setAlignment(&row, isNarrow ? Qt::Alignment() : Qt::AlignTop);
}

}  // namespace vemra::desk
