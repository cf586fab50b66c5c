#pragma once

#include <memory>

#include <QFont>
#include <QSize>
#include <QString>
#include <Qt>

class QPainter;
class QTextLayout;
class QRect;

namespace vemra::qt {

/// A text broken into lines for a width: measured once, drawn from the same lines.
///
/// Plain text, literally: no markup, no mnemonics, nothing elided. Long words break, line breaks of
/// any kind start a new line, and each paragraph takes its own reading direction. Copies share.
class TextShape {
 public:
  TextShape() = default;
  /// `width` is at least one pixel. The empty text has one line's height.
  TextShape(const QString& text, const QFont& font, int width);

  bool isEmpty() const { return !layout_; }
  QSize size() const { return size_; }
  /// Of its first line, in pixels.
  int lineHeight() const { return lineHeight_; }
  /// Draws in the painter's pen. Lines begin at the leading edge, or stand in the middle.
  void draw(QPainter& painter, const QRect& place, Qt::LayoutDirection direction,
            Qt::Alignment alignment = Qt::AlignLeading) const;
  /// Rules a line under each line of the text, where `draw` put it.
  void underline(QPainter& painter, const QRect& place, Qt::LayoutDirection direction) const;

 private:
  std::shared_ptr<QTextLayout> layout_;
  QSize size_;
  int lineHeight_ = 0;
};

/// The text with every line break as one U+2028, which is what makes a line in a text layout.
QString withLineSeparators(const QString& text);

}  // namespace vemra::qt
