#include "VemraQt/widgets/TextLines.hpp"

#include "VemraQt/widgets/TextCuts.hpp"

#include <algorithm>
#include <cmath>
#include <ranges>

#include <QTextOption>

namespace vemra::qt {

TextLines::TextLines(QStringView text, qsizetype from, qsizetype to, const LineBreaking& breaking)
    : from_(from) {
  const QString part = text.mid(from, to - from).toString();
  QString lines = withLineSeparators(part);
  // A part has the direction of the text before it and after it.
  for (qsizetype i = 0; lines.size() < part.size() && i + 1 < part.size(); ++i) {
    if (part[i] != u'\r' || part[i + 1] != u'\n') continue;
    dropped_.push_back(static_cast<int>(i - static_cast<qsizetype>(dropped_.size())));
  }
  const QChar direction = directionBefore(text, from, breaking.rightToLeft);
  if (!direction.isNull()) {
    lines.prepend(direction);
    prefix_ = 1;
  }
  const QChar next = directionAfter(text, to, breaking.rightToLeft);
  if (!next.isNull()) lines.append(next);
  unitsLaidOut_ += lines.size();
  QTextOption option;
  option.setWrapMode(breaking.anywhere ? QTextOption::WrapAnywhere
                                       : QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setTextDirection(breaking.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
  option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
  layout_.setText(lines);
  layout_.setFont(breaking.font);
  layout_.setTextOption(option);
  layout_.setCacheEnabled(true);
  layout_.beginLayout();
  qreal height = 0;
  for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
    line.setLineWidth(std::max(1, breaking.width));
    line.setPosition(QPointF(0, height));
    height += std::ceil(line.height());
  }
  layout_.endLayout();
}

qsizetype TextLines::toWhole(int position) const {
  position = std::max(0, position - prefix_);
  const auto before = std::ranges::lower_bound(dropped_, position) - dropped_.begin();
  return from_ + position + before;
}

int TextLines::fromWhole(qsizetype offset) const {
  int position = static_cast<int>(offset - from_);
  for (const int dropped : dropped_) {
    if (dropped >= position) break;
    --position;
  }
  return position + prefix_;
}

int TextLines::lineWith(qsizetype offset) const {
  const auto lines = std::views::iota(0, count());
  const auto after = std::ranges::partition_point(lines, [&](int i) { return start(i) <= offset; });
  return std::max(0, static_cast<int>(after - lines.begin()) - 1);
}

int TextLines::top(int index) const {
  if (index < count()) return static_cast<int>(line(index).y());
  const QTextLine last = line(count() - 1);
  return static_cast<int>(last.y() + std::ceil(last.height()));
}

TextLines::Edges TextLines::edges(qsizetype offset) const {
  const QTextLine line = this->line(lineWith(offset));
  const int position = fromWhole(offset);
  return {line.cursorToX(position), line.cursorToX(position + 1)};
}

qsizetype TextLines::offsetAt(int line, qreal x) const {
  return toWhole(this->line(line).xToCursor(x, QTextLine::CursorOnCharacter));
}

}  // namespace vemra::qt
