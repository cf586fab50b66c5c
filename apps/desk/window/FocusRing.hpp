#pragma once

#include <QToolButton>

class QPainter;

namespace vemra::desk {

/// Draws the focus ring of the page just inside the frame of a widget, under the widget's palette.
void drawFocusRing(QPainter& painter, const QWidget& widget);

/// A button without a frame, with the focus ring of the page. Space and Return press it.
class QuietButton : public QToolButton {
  Q_OBJECT

 public:
  explicit QuietButton(const QString& title, QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace vemra::desk
