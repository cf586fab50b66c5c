#include "VemraQt/widgets/TextShape.hpp"

#include "VemraQt/widgets/LongText.hpp"
#include "VemraQt/widgets/TextCuts.hpp"

#include <algorithm>
#include <cmath>
#include <ranges>

#include <QPainter>
#include <QTextLayout>
#include <QTextOption>

namespace vemra::qt {

TextShape::TextShape(const QString& text, const QFont& font, int width)
    : layout_(std::make_shared<QTextLayout>(withLineSeparators(text), font)) {
  QTextOption option;
  // At every line of a word, Qt searches the rest of the word for its end, which takes quadratic
  // time. A text with an endless word is not for reading, so it breaks wherever a line is full.
  option.setWrapMode(hasEndlessWord(text) ? QTextOption::WrapAnywhere
                                          : QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setTextDirection(Qt::LayoutDirectionAuto);
  option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
  layout_->setTextOption(option);
  layout_->setCacheEnabled(true);
  layout_->beginLayout();
  qreal height = 0;
  qreal widest = 0;
  for (QTextLine line = layout_->createLine(); line.isValid(); line = layout_->createLine()) {
    line.setLineWidth(std::max(1, width));
    line.setPosition(QPointF(0, height));
    height += std::ceil(line.height());
    if (lineHeight_ == 0) lineHeight_ = static_cast<int>(height);
    widest = std::max(widest, line.naturalTextWidth());
  }
  layout_->endLayout();
  if (text.isEmpty()) height = TextShape(QStringLiteral(" "), font, width).size().height();
  size_ = QSize(static_cast<int>(std::ceil(widest)), static_cast<int>(height));
}

TextShape TextShape::ofAnyLength(const QString& text, const QFont& font, int width) {
  if (text.size() <= LongText::shortest) return TextShape(text, font, width);
  TextShape shape;
  shape.long_ = std::make_shared<LongText>(text, font, width);
  shape.lineHeight_ = shape.long_->lineHeight();
  return shape;
}

QSize TextShape::size() const {
  return long_ ? long_->size() : size_;
}

namespace {

/// The lines that are drawn on each side of the visible ones.
constexpr int linesOfReach = 64;

/// The x position of a line: at the leading edge of `place`, or so that the line is centred.
qreal startOf(const QTextLine& line, const QRect& place, Qt::LayoutDirection direction,
              Qt::Alignment alignment) {
  if (alignment & Qt::AlignHCenter) {
    return place.left() + std::floor((place.width() - line.naturalTextWidth()) / 2);
  }
  if (direction == Qt::RightToLeft) {
    return place.left() + place.width() - std::ceil(line.naturalTextWidth());
  }
  return place.left();
}

}  // namespace

template <class Act>
void TextShape::eachLine(const QRect& place, const QRect& visible, const Act& act) const {
  // Marks above and below a letter may reach far out of its line.
  const int reach = linesOfReach * lineHeight_;
  if (long_) {
    const int from = visible.top() - reach - place.top();
    for (const LongText::PlacedLine& found :
         long_->linesBetween(from, from + visible.height() + 2 * reach)) {
      act(found.line, found.top);
    }
  }
  if (!layout_) return;
  const qreal top = visible.top() - reach - place.top();
  const qreal bottom = visible.bottom() + reach - place.top();
  const auto lines = std::views::iota(0, layout_->lineCount());
  const auto isAbove = [&](int i) { return layout_->lineAt(i).y() < top; };
  const auto first = std::ranges::partition_point(lines, isAbove);
  for (const int i : std::ranges::subrange(first, lines.end())) {
    const QTextLine line = layout_->lineAt(i);
    if (line.y() > bottom) return;
    act(line, 0);
  }
}

bool TextShape::layOut(const QRect& place, const QRect& visible) const {
  if (!long_) return false;
  const int reach = linesOfReach * lineHeight_;
  const int from = visible.top() - reach - place.top();
  return long_->layOut(from, from + visible.height() + 2 * reach);
}

void TextShape::draw(QPainter& painter, const QRect& place, const QRect& visible,
                     Qt::LayoutDirection direction, Qt::Alignment alignment) const {
  eachLine(place, visible, [&](const QTextLine& line, int top) {
    // Qt lays out a right-to-left paragraph against the far end of its line.
    const qreal x = startOf(line, place, direction, alignment) - line.naturalTextRect().left();
    line.draw(&painter, QPointF(x, place.top() + top));
  });
}

void TextShape::underline(QPainter& painter, const QRect& place, const QRect& visible,
                          Qt::LayoutDirection direction) const {
  eachLine(place, visible, [&](const QTextLine& line, int top) {
    const qreal x = startOf(line, place, direction, Qt::AlignLeading);
    const qreal y = std::floor(place.top() + top + line.y() + line.ascent() + 2) + 0.5;
    painter.drawLine(QPointF(x, y), QPointF(x + line.naturalTextWidth(), y));
  });
}

QRect TextShape::characterRect(const QString& text, int offset, const QRect& place,
                               Qt::LayoutDirection direction) const {
  if (isEmpty() || offset < 0 || offset >= text.size()) return {};
  const auto rectIn = [&](const QTextLine& line, int top, qreal one, qreal other) {
    const qreal start =
        startOf(line, place, direction, Qt::AlignLeading) - line.naturalTextRect().left();
    return QRectF(start + std::min(one, other), place.top() + top + line.y(), std::abs(other - one),
                  line.height())
        .toAlignedRect();
  };
  if (long_) {
    if (long_->text().size() != text.size()) return {};
    const LongText::PlacedCharacter found = long_->character(offset);
    return rectIn(found.place.line, found.place.top, found.edges.one, found.edges.other);
  }
  if (layout_->text().size() != text.size()) return {};
  const QTextLine line = layout_->lineForTextPosition(offset);
  if (!line.isValid()) return {};
  return rectIn(line, 0, line.cursorToX(offset), line.cursorToX(offset + 1));
}

int TextShape::offsetAt(QPoint point, const QRect& place, Qt::LayoutDirection direction) const {
  if (!long_) return -1;
  const int y = point.y() - place.top();
  const QTextLine line = long_->character(long_->offsetAt(y)).place.line;
  const qreal start =
      startOf(line, place, direction, Qt::AlignLeading) - line.naturalTextRect().left();
  const auto offset = static_cast<int>(long_->offsetAt(y, point.x() - start));
  return characterRect(long_->text(), offset, place, direction).contains(point) ? offset : -1;
}

}  // namespace vemra::qt
