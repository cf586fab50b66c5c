#include "VemraQt/widgets/LineField.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyleOptionFrame>
#include <QTextLayout>

namespace vemra::qt {

namespace {

bool isLineBreak(QChar c) {
  return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

/// The text as Qt shows it, with a blank for each control character.
QString displayed(QString text) {
  for (QChar& c : text) {
    if ((c.unicode() < 0x20 && c != u'\t') || isLineBreak(c)) c = u' ';
  }
  return text;
}

bool hasLineBreak(const QString& text) {
  return std::any_of(text.begin(), text.end(), isLineBreak);
}

/// The format of a blank that shows a line break: it widens the blank for a mark as wide as a
/// capital is high, with some space on both sides.
QTextCharFormat wideBreak(const QFont& font) {
  QTextCharFormat format;
  format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
  format.setFontLetterSpacing(QFontMetrics(font).capHeight() * 1.2);
  return format;
}

/// Whether a line edit handles the key. Other keys go to the page and the window.
bool actsOn(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
      return true;
    case Qt::Key_Escape:
      return false;
    default:
      return !event.text().isEmpty() || event.matches(QKeySequence::Paste);
  }
}

/// A pasted text may have any number of lines; only this many line breaks are marked.
constexpr int mostWideBreaks = 500;

QList<QTextLayout::FormatRange> wideBreaks(const QString& text, const QFont& font) {
  QList<QTextLayout::FormatRange> ranges;
  for (qsizetype i = 0; i < text.size() && ranges.size() < mostWideBreaks; ++i) {
    if (isLineBreak(text[i])) ranges.append({static_cast<int>(i), 1, wideBreak(font)});
  }
  return ranges;
}

/// Lays out a text as a line edit shows it; returns its only line.
QTextLine layOut(QTextLayout& layout, const QString& text, const QFont& font) {
  layout.setText(displayed(text));
  layout.setFont(font);
  layout.setFormats(wideBreaks(text, font));
  layout.beginLayout();
  QTextLine line = layout.createLine();
  layout.endLayout();
  return line;
}

}  // namespace

LineField::LineField(QWidget* parent, const PageContext& page)
    : QLineEdit(parent), ElementWidget(page) {
  setFocusPolicy(Qt::ClickFocus);
  setFrame(false);             // the field draws its own frame
  setTextMargins(4, 0, 4, 0);  // high accents may use the full height
  setMaxLength(std::numeric_limits<int>::max());
  connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
    widenLineBreaks();
    if (!isUpdating() && node()) deliver(ui::EditText{text.toStdString()});
  });
}

void LineField::updateTo(const page::Node& leaf, const TextShape& shape) {
  const QString wanted = toQString(leaf.element.text());
  if (text() != wanted) {
    const int cursor = cursorPosition();
    setText(wanted);
    setCursorPosition(hasFocus() ? cursor : static_cast<int>(wanted.size()));
  }
  const QString title = toQString(leaf.element.shownLabel());
  if (accessibleName() != title) setAccessibleName(title);
  prompt_ = shape;
  update();
}

void LineField::focusInEvent(QFocusEvent* event) {
  const QScopedValueRollback<bool> changing(isChangingFocus_, true);
  QLineEdit::focusInEvent(event);
}

void LineField::focusOutEvent(QFocusEvent* event) {
  const QScopedValueRollback<bool> changing(isChangingFocus_, true);
  QLineEdit::focusOutEvent(event);
}

void LineField::endInteraction() {
  clear();  // also clears the undo history, so that the next element starts with an empty one
}

void LineField::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  paintFrame(painter);
  if (displayText().isEmpty()) paintPrompt(painter);
  if (hasWideBreaks_) paintLineBreaks(painter);
}

void LineField::paintFrame(QPainter& painter) {
  if (hasFocus()) {
    drawFocusRing(painter, rect(), theme(), RingAround::frame);
  } else {
    drawOutline(painter, *this, rect(), theme());
  }
}

void LineField::paintPrompt(QPainter& painter) {
  QStyleOptionFrame option;
  initStyleOption(&option);
  const QRect inside = style()
                           ->subElementRect(QStyle::SE_LineEditContents, &option, this)
                           .marginsRemoved(textMargins());
  painter.setPen(isEnabled() ? theme().text(ui::ForegroundStyle::tertiary)
                             : theme().disabledText());
  const int above = (height() - prompt_.size().height()) / 2;
  prompt_.draw(painter, QRect(inside.x() + 2, above, inside.width() - 4, prompt_.size().height()),
               rect(), layoutDirection());
}

/// Widens the blanks of line breaks. A line edit accepts text formats only as an input method sends
/// them: relative to the cursor, in an event that changes no text.
void LineField::widenLineBreaks() {
  const bool hasBreaks = hasLineBreak(text());
  if (isComposing_ || (!hasBreaks && !hasWideBreaks_)) return;
  hasWideBreaks_ = hasBreaks;
  QList<QInputMethodEvent::Attribute> formats;
  for (const QTextLayout::FormatRange& range : wideBreaks(text(), font())) {
    formats.append({QInputMethodEvent::TextFormat, range.start - cursorPosition(), range.length,
                    QVariant::fromValue(QTextFormat(range.format))});
  }
  QInputMethodEvent event(QString(), formats);
  QLineEdit::inputMethodEvent(&event);
}

/// The position where the line of the text begins, computed from the cursor: the only position that
/// a line edit reveals.
qreal LineField::startOfText(const QTextLine& line) const {
  return cursorRect().center().x() - std::round(line.cursorToX(cursorPosition()));
}

QRect LineField::characterRect(int offset) const {
  QTextLayout layout;
  const QTextLine line = layOut(layout, text(), font());
  if (!line.isValid()) return cursorRect();
  offset = std::clamp(offset, 0, static_cast<int>(text().size()));
  const qreal start = startOfText(line);
  const qreal one = line.cursorToX(offset), other = line.cursorToX(offset + 1);
  const QRect cursor = cursorRect();
  return QRectF(start + std::min(one, other), cursor.top(), std::abs(other - one), cursor.height())
      .toAlignedRect();
}

/// Draws an arrow, pointing back to the start of the line, in the middle of every blank that stands
/// for a line break.
void LineField::paintLineBreaks(QPainter& painter) {
  if (isComposing_) return;
  QTextLayout layout;
  const QTextLine line = layOut(layout, text(), font());
  if (!line.isValid()) return;
  const QRect cursor = cursorRect();
  const QFontMetrics metrics(font());
  const qreal start = startOfText(line);
  const qreal size = metrics.capHeight();
  const qreal foot = cursor.top() + metrics.ascent() - size / 4;
  painter.setClipRect(rect().adjusted(4, 2, -4, -2));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(theme().text(ui::ForegroundStyle::tertiary), std::max(1.0, size / 9)));
  for (const QTextLayout::FormatRange& range : wideBreaks(text(), font())) {
    const qreal from = start + line.cursorToX(range.start);
    const qreal to = start + line.cursorToX(range.start + 1);
    const qreal middle = (from + to) / 2;
    const qreal forward = from < to ? size / 2 : -size / 2;
    const qreal tip = size / 4 * (from < to ? 1 : -1);
    painter.drawPolyline(QPolygonF({{middle + forward, foot - size * 0.6},
                                    {middle + forward, foot},
                                    {middle - forward, foot}}));
    painter.drawPolyline(QPolygonF({{middle - forward + tip, foot - size / 4},
                                    {middle - forward, foot},
                                    {middle - forward + tip, foot + size / 4}}));
  }
}

void LineField::inputMethodEvent(QInputMethodEvent* event) {
  isComposing_ = !event->preeditString().isEmpty();
  if (isComposing_ || !event->commitString().isEmpty()) scrollIn();
  QLineEdit::inputMethodEvent(event);
  widenLineBreaks();  // the event has replaced the formats
}

void LineField::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  if (event->type() == QEvent::FontChange) widenLineBreaks();
}

void LineField::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    // Held down, the key would submit again and again.
    if (!event->isAutoRepeat() && scrollIn()) deliver(ui::Submit{});
    return;
  }
  if (actsOn(*event) && !scrollIn()) return;
  QLineEdit::keyPressEvent(event);
}

void LineField::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() != QContextMenuEvent::Keyboard) {
    QLineEdit::contextMenuEvent(event);
  } else if (scrollIn()) {
    const QPoint at = cursorRect().center();  // scrolling may have moved it
    QContextMenuEvent moved(QContextMenuEvent::Keyboard, at, mapToGlobal(at), event->modifiers());
    QLineEdit::contextMenuEvent(&moved);
  }
}

}  // namespace vemra::qt
