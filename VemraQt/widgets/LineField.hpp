#pragma once

#include "VemraQt/widgets/ElementWidget.hpp"

#include <QLineEdit>

class QTextLine;

namespace vemra::qt {

/// A TextField: a line of any length.
///
/// The widget holds the element's exact text. Qt shows a line break as a blank; this widget makes
/// the blank wide enough and draws a mark there. It sets the tree's text only when that differs
/// from its own, so that the cursor and the selection stay. Return delivers `Submit` and changes no
/// text.
class LineField final : public QLineEdit, public ElementWidget {
  Q_OBJECT

 public:
  LineField(QWidget* parent, const PageContext& page);
  QWidget& widget() override { return *this; }
  bool isChangingFocus() const override { return isChangingFocus_; }
  /// Where the character at that offset of the text is drawn, in the widget's coordinates; at the
  /// end of the text, where the next one would begin. It may be outside the visible part of a long
  /// text.
  QRect characterRect(int offset) const;

 protected:
  void updateTo(const page::Node& leaf, const TextShape& shape) override;
  void endInteraction() override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void widenLineBreaks();
  void paintFrame(QPainter& painter);
  void paintPrompt(QPainter& painter);
  void paintLineBreaks(QPainter& painter);
  qreal startOfText(const QTextLine& line) const;

  TextShape prompt_;
  bool isChangingFocus_ = false;
  bool isComposing_ = false;  ///< an input method shows text that is not part of `text()` yet
  bool hasWideBreaks_ = false;
};

}  // namespace vemra::qt
