#pragma once

#include <memory>

#include <QFont>
#include <QPoint>
#include <QSize>
#include <QString>
#include <Qt>

class QPainter;
class QTextLayout;
class QRect;

namespace vemra::qt {

class LongText;

/// A text broken into lines for a width: measured once, and drawn in the same lines.
///
/// The text is literal: no markup, no mnemonics, no elision. Long words break, any kind of line
/// break starts a new line, and each paragraph has its own reading direction. Copies share the
/// lines.
///
/// Of a *long* text (`ofAnyLength`) only the lines near the visible part are laid out, and the size
/// is an estimate until all others are, too (`LongText`).
class TextShape {
 public:
  TextShape() = default;
  /// `width` is at least one pixel. An empty text has the height of one line.
  TextShape(const QString& text, const QFont& font, int width);

  /// The same for a text of any length: a long one is laid out in parts.
  static TextShape ofAnyLength(const QString& text, const QFont& font, int width);

  bool isEmpty() const { return !layout_ && !long_; }
  QSize size() const;
  /// The height of the first line, in pixels.
  int lineHeight() const { return lineHeight_; }
  /// Draws with the painter's pen. Lines begin at the leading edge, or are centred. Lines far from
  /// `visible`, which has the painter's coordinates, are left out: drawing costs what is seen of a
  /// text, however long it is.
  void draw(QPainter& painter, const QRect& place, const QRect& visible,
            Qt::LayoutDirection direction, Qt::Alignment alignment = Qt::AlignLeading) const;
  /// Draws a line under each line of the text, where `draw` has put it.
  void underline(QPainter& painter, const QRect& place, const QRect& visible,
                 Qt::LayoutDirection direction) const;
  /// Where `draw` puts the character at that offset of the text; a null rectangle without such a
  /// character, and for a short text with line breaks of two characters.
  QRect characterRect(const QString& text, int offset, const QRect& place,
                      Qt::LayoutDirection direction) const;
  /// The offset of the character of a long text that `draw` puts at `point`, -1 where it puts none.
  int offsetAt(QPoint point, const QRect& place, Qt::LayoutDirection direction) const;

  /// The parts of a long text, which all copies share; nullptr for a short one.
  LongText* parts() const { return long_.get(); }
  /// Whether both are the same long text, so that no comparison of the texts is needed.
  bool hasPartsOf(const TextShape& other) const { return long_ && long_ == other.long_; }
  /// Lays out the lines of a long text that `draw` needs; returns whether a line has moved, or the
  /// size is another one.
  bool layOut(const QRect& place, const QRect& visible) const;

 private:
  /// Calls `act` for each line that may show in `visible`.
  template <class Act>
  void eachLine(const QRect& place, const QRect& visible, const Act& act) const;

  std::shared_ptr<QTextLayout> layout_;
  std::shared_ptr<LongText> long_;
  QSize size_;
  int lineHeight_ = 0;
};

}  // namespace vemra::qt
