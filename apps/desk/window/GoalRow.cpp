#include "apps/desk/window/GoalRow.hpp"

#include "VemraQt/Contrast.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>

#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>
#include <QToolTip>

namespace vemra::desk {
namespace {

constexpr int margin = 10;
constexpr int mostLines = 3;
constexpr qsizetype mostCharacters = 400;  // more than three lines hold; laying out more costs time
constexpr int mostLinesInToolTip = 30;     // about as many as a screen has room for

/// The text, shortened to `most` characters with an ellipsis.
QString atMost(qsizetype most, const QString& text) {
  if (text.size() <= most) return text;
  const bool cutsAPair = text[most - 1].isHighSurrogate() && text[most].isLowSurrogate();
  return text.left(cutsAPair ? most - 1 : most) + u'…';
}

/// A title, shortened to fit into a tool tip.
QString forToolTip(const QString& title) {
  QString text = firstPiece(title);
  qsizetype end = -1;
  for (int line = 0; line < mostLinesInToolTip; ++line) {
    end = text.indexOf(u'\n', end + 1);
    if (end < 0) return text;
  }
  return text.left(end + 1) + u'…';
}

int widthOfText(int widthOfRow) {
  return std::max(1, widthOfRow - 2 * margin);
}

/// The palette's background of what is selected, changed as far as needed for a title in `ink` to
/// be readable on it: many palettes give it less contrast than text needs.
QColor selectedGround(const QColor& highlight, const QColor& ink) {
  const bool isInkLight = qt::contrast(ink, Qt::black) > qt::contrast(ink, Qt::white);
  return qt::readable(highlight, isInkLight ? Qt::black : Qt::white, ink, 4.5);
}

/// A text broken into lines of a width.
struct Lines {
  QStringList texts;
  bool allOfIt = true;  ///< false: the last line ends in "…" and omits the rest
};

Lines linesOf(const QString& text, const QFont& font, int width) {
  QTextLayout layout(text, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  Lines lines;
  layout.beginLayout();
  while (true) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(width);
    if (lines.texts.size() + 1 == mostLines) {
      const QString rest = text.mid(line.textStart());
      const QString last = QFontMetrics(font).elidedText(rest, Qt::ElideRight, width);
      lines.allOfIt = last == rest;
      lines.texts.append(last);
      break;
    }
    QString shown = text.mid(line.textStart(), line.textLength());
    while (shown.endsWith(u' ')) shown.chop(1);  // the blank at which the line was broken
    lines.texts.append(shown);
  }
  layout.endLayout();
  if (lines.texts.isEmpty()) lines.texts.append(QString());
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
  takeTitle({});
}

void GoalRow::setTitle(const QString& title) {
  if (title_ != title) takeTitle(title);
}

void GoalRow::takeTitle(const QString& title) {
  title_ = title;
  const QString inOneLine = title.simplified();
  shown_ = atMost(mostCharacters, inOneLine);
  if (shown_.isEmpty()) shown_ = localized("(no title)");
  showsAll_ = inOneLine.size() <= mostCharacters;
  setText(asButtonTitle(title));
  setAccessibleName(nameOf(title));
  updateGeometry();
  update();
}

QString GoalRow::nameOf(const QString& title) {
  return title.simplified().isEmpty() ? localized("(no title)") : title;
}

int GoalRow::heightForWidth(int width) const {
  const auto lines = linesOf(shown_, font(), widthOfText(width)).texts.size();
  return static_cast<int>(lines) * fontMetrics().lineSpacing() + 2 * margin - 4;
}

QSize GoalRow::sizeHint() const {
  const int width = 200;
  return {width, heightForWidth(width)};
}

QSize GoalRow::minimumSizeHint() const {
  return {80, fontMetrics().lineSpacing() + 2 * margin - 4};
}

bool GoalRow::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QPushButton::event(event);
  // Make the tool tip on request: only the present width decides whether it shows more than the
  // row. With the `toolTip` property, assistive technology would read the same words again as a
  // description.
  if (showsAll_ && linesOf(shown_, font(), widthOfText(width())).allOfIt) {
    QToolTip::hideText();
    event->ignore();
  } else {
    const QPoint at = static_cast<QHelpEvent*>(event)->globalPos();
    QToolTip::showText(at, asToolTip(forToolTip(title_)), this);
  }
  return true;
}

void GoalRow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF ground = QRectF(rect()).adjusted(1, 1, -1, -1);
  const auto group = isActiveWindow() ? QPalette::Active : QPalette::Inactive;
  const QColor ink =
      palette().color(group, isChecked() ? QPalette::HighlightedText : QPalette::WindowText);
  if (isChecked()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(selectedGround(palette().color(group, QPalette::Highlight), ink));
    painter.drawRoundedRect(ground, 6, 6);
  } else if (underMouse()) {
    QColor hover = palette().color(QPalette::WindowText);
    hover.setAlphaF(0.07F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(hover);
    painter.drawRoundedRect(ground, 6, 6);
  }
  if (hasFocus()) {
    QColor ring = isChecked() ? ink : palette().color(QPalette::Highlight);
    painter.setPen(QPen(ring, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(ground.adjusted(2, 2, -2, -2), 4, 4);
  }
  painter.setPen(ink);
  QRect line(margin, margin - 2, width() - 2 * margin, fontMetrics().lineSpacing());
  // The title begins at the leading edge and has its own direction.
  const Qt::Alignment edge = isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft;
  const Qt::TextFlag direction =
      shown_.isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
  const int flags =
      int(edge | Qt::AlignAbsolute | Qt::AlignVCenter) | int(direction) | int(Qt::TextSingleLine);
  for (const QString& text : linesOf(shown_, font(), widthOfText(width())).texts) {
    painter.drawText(line, flags, text);
    line.translate(0, line.height());
  }
}

}  // namespace vemra::desk
