#include "apps/desk/window/GoalRow.hpp"

#include "apps/desk/window/PlainText.hpp"

#include <algorithm>

#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>

namespace vemra::desk {
namespace {

constexpr int margin = 10;
constexpr int mostLines = 3;
constexpr qsizetype mostCharacters = 400;  // three lines hold less, and laying out costs time

/// The lines of a text in that width; the last of too many ends in "…".
QStringList linesOf(const QString& text, const QFont& font, int width) {
  QTextLayout layout(text, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QStringList lines;
  layout.beginLayout();
  while (true) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(width);
    if (lines.size() + 1 == mostLines) {
      const QString rest = text.mid(line.textStart());
      lines.append(QFontMetrics(font).elidedText(rest, Qt::ElideRight, width));
      break;
    }
    lines.append(text.mid(line.textStart(), line.textLength()));
  }
  layout.endLayout();
  if (lines.isEmpty()) lines.append(QString());
  return lines;
}

}  // namespace

GoalRow::GoalRow(QWidget* parent) : QPushButton(parent) {
  setCheckable(true);
  setAutoExclusive(true);
  setCursor(Qt::PointingHandCursor);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void GoalRow::setTitle(const QString& title) {
  if (title == accessibleName()) return;
  shown_ = title.left(mostCharacters).simplified();
  if (shown_.isEmpty()) shown_ = QStringLiteral("(no title)");
  setText(asButtonTitle(title));
  setAccessibleName(title);
  updateGeometry();
  update();
}

int GoalRow::heightForWidth(int width) const {
  const auto lines = linesOf(shown_, font(), std::max(1, width - 2 * margin)).size();
  return static_cast<int>(lines) * fontMetrics().lineSpacing() + 2 * margin - 4;
}

QSize GoalRow::sizeHint() const {
  const int width = 200;
  return {width, heightForWidth(width)};
}

QSize GoalRow::minimumSizeHint() const {
  return {80, fontMetrics().lineSpacing() + 2 * margin - 4};
}

void GoalRow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF ground = QRectF(rect()).adjusted(1, 1, -1, -1);
  const auto group = isActiveWindow() ? QPalette::Active : QPalette::Inactive;
  if (isChecked()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(group, QPalette::Highlight));
    painter.drawRoundedRect(ground, 6, 6);
  } else if (underMouse()) {
    QColor hover = palette().color(QPalette::WindowText);
    hover.setAlphaF(0.07F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(hover);
    painter.drawRoundedRect(ground, 6, 6);
  }
  const QColor ink =
      palette().color(group, isChecked() ? QPalette::HighlightedText : QPalette::WindowText);
  if (hasFocus()) {
    QColor ring = isChecked() ? ink : palette().color(QPalette::Highlight);
    painter.setPen(QPen(ring, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(ground.adjusted(2, 2, -2, -2), 4, 4);
  }
  painter.setPen(ink);
  QRect line(margin, margin - 2, width() - 2 * margin, fontMetrics().lineSpacing());
  for (const QString& text : linesOf(shown_, font(), std::max(1, line.width()))) {
    painter.drawText(line, Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine, text);
    line.translate(0, line.height());
  }
}

}  // namespace vemra::desk
