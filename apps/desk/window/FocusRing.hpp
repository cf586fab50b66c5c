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
  /// The part of the button that its title is centred in; all of it unless a subclass draws beside
  /// the title.
  virtual QRect titleRect() const { return rect(); }
  /// Draws what stands beside the title; nothing here.
  virtual void drawBesideTitle(QPainter& painter) const;
};

}  // namespace vemra::desk
