#include "VemraQt/widgets/LineField.hpp"

#include <limits>

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QTextLayout>

namespace vemra::qt {

namespace {

bool isLineBreak(QChar c) {
  return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

/// As Qt shows it: control characters as blanks.
QString displayed(QString text) {
  for (QChar& c : text) {
    if ((c.unicode() < 0x20 && c != u'\t') || isLineBreak(c)) c = u' ';
  }
  return text;
}

}  // namespace

LineField::LineField(QWidget* parent, const PageContext& page)
    : QLineEdit(parent), ElementWidget(page) {
  setFocusPolicy(Qt::ClickFocus);
  setFrame(false);  // it draws its own
  setTextMargins(4, 2, 4, 2);
  setMaxLength(std::numeric_limits<int>::max());
  connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (!isTaking() && node()) deliver(ui::EditText{text.toStdString()});
  });
}

void LineField::take(const RenderNode& leaf) {
  const QString wanted = toQString(leaf.element.text());
  if (text() != wanted) {
    const int cursor = cursorPosition();
    setText(wanted);
    setCursorPosition(hasFocus() ? cursor : static_cast<int>(wanted.size()));
  }
  const QString title = toQString(leaf.element.shownLabel());
  if (accessibleName() != title) setAccessibleName(title);
  prompt_ = leaf.shape;
  update();
}

void LineField::letGo() {
  clear();  // with its undo history: the next element's begins anew
}

void LineField::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  paintFrame(painter);
  if (displayText().isEmpty()) paintPrompt(painter);
  if (text().contains(u'\n') || text().contains(u'\r') || text().contains(QChar::LineSeparator) ||
      text().contains(QChar::ParagraphSeparator)) {
    paintLineBreaks(painter);
  }
}

void LineField::paintFrame(QPainter& painter) {
  if (hasFocus()) {
    drawFocusRing(painter, rect(), looks());
    return;
  }
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(isEnabled() ? looks().outline() : looks().disabledText());
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  painter.restore();
}

void LineField::paintPrompt(QPainter& painter) {
  QStyleOptionFrame option;
  initStyleOption(&option);
  const QRect inside = style()
                           ->subElementRect(QStyle::SE_LineEditContents, &option, this)
                           .marginsRemoved(textMargins());
  painter.setPen(isEnabled() ? looks().text(ui::ForegroundStyle::tertiary)
                             : looks().disabledText());
  const int above = (height() - prompt_.size().height()) / 2;
  prompt_.draw(painter, QRect(inside.x() + 2, above, inside.width() - 4, prompt_.size().height()),
               layoutDirection());
}

/// A small arrow in the middle of every blank that stands for a line break. Where the text begins
/// is told by the cursor, the only place of it that a line edit gives away.
void LineField::paintLineBreaks(QPainter& painter) {
  QTextLayout layout(displayed(text()), font());
  layout.beginLayout();
  QTextLine line = layout.createLine();
  layout.endLayout();
  if (!line.isValid()) return;
  const QRect cursor = cursorRect();
  const qreal start = cursor.center().x() - line.cursorToX(cursorPosition());
  const qreal middle = cursor.center().y() + 1;
  painter.setClipRect(rect().adjusted(4, 2, -4, -2));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(looks().text(ui::ForegroundStyle::tertiary), 1));
  for (qsizetype i = 0; i < text().size(); ++i) {
    if (!isLineBreak(text()[i])) continue;
    const qreal left = start + line.cursorToX(static_cast<int>(i));
    const qreal right = start + line.cursorToX(static_cast<int>(i) + 1);
    const qreal from = std::max(left, right);
    const qreal to = std::min(left, right);
    painter.drawPolyline(QPolygonF({{from, middle - 4}, {from, middle}, {to, middle}}));
    painter.drawPolyline(QPolygonF({{to + 2, middle - 2}, {to, middle}, {to + 2, middle + 2}}));
  }
}

void LineField::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    if (node()) deliver(ui::Submit{});
    return;
  }
  QLineEdit::keyPressEvent(event);
}

}  // namespace vemra::qt
