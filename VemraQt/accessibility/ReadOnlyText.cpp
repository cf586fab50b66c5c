#include "VemraQt/accessibility/ReadOnlyText.hpp"

#include <algorithm>
#include <cstdint>

namespace vemra::qt {

QString ReadOnlyText::text(int start, int end) const {
  const QString whole = wholeText();
  const int size = static_cast<int>(whole.size());
  start = std::clamp(start, 0, size);
  end = end < 0 ? size : std::clamp(end, start, size);
  return whole.mid(start, end - start);
}

QRect ReadOnlyText::characterRect(int offset) const {
  if (const QRect drawn = drawnRect(offset); !drawn.isNull()) return drawn;
  const int count = std::max(1, characterCount());
  const QRect whole = textRect();
  const int width = std::max(1, whole.width() / count);
  const std::int64_t before = std::int64_t{whole.width()} * std::clamp(offset, 0, count) / count;
  return QRect(whole.x() + static_cast<int>(before), whole.y(), width, whole.height());
}

int ReadOnlyText::offsetAtPoint(const QPoint& point) const {
  const QRect whole = textRect();
  if (!whole.contains(point)) return -1;
  if (const std::optional<int> drawn = drawnAt(point)) return *drawn;
  if (!drawnRect(0).isNull()) {
    for (int offset = 0; offset < characterCount(); ++offset) {
      if (drawnRect(offset).contains(point)) return offset;
    }
    return -1;
  }
  const std::int64_t along = point.x() - whole.x();
  return static_cast<int>(along * characterCount() / std::max(1, whole.width()));
}

QString ReadOnlyText::attributes(int, int* start, int* end) const {
  *start = 0;
  *end = characterCount();
  return {};
}

}  // namespace vemra::qt
