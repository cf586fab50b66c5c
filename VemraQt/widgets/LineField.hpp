#pragma once

#include "VemraQt/widgets/ElementWidget.hpp"

#include <QLineEdit>

namespace vemra::qt {

/// A TextField: one line of any length.
///
/// Its text is the real text. A line break in it is kept and shown as a mark, in the place of the
/// blank that Qt shows, which is made wide enough for it. The tree's text is written into it only when it is another one, so that
/// cursor and selection stay where they are. Return does nothing but tell the element.
class LineField final : public QLineEdit, public ElementWidget {
  Q_OBJECT

 public:
  LineField(QWidget* parent, const PageContext& page);
  QWidget& widget() override { return *this; }

 protected:
  void take(const page::Node& leaf, const TextShape& shape) override;
  void letGo() override;
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

  TextShape prompt_;
  bool isComposing_ = false;  ///< an input method shows what is not yet part of the text
  bool hasWideBreaks_ = false;
};

}  // namespace vemra::qt
