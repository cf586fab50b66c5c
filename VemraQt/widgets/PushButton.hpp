#pragma once

#include "VemraQt/widgets/ElementWidget.hpp"

#include <QPushButton>

namespace vemra::qt {

/// A Button: the platform's frame around the measured lines or, in the plain style, only those
/// lines, in the colour of a link.
class PushButton final : public QPushButton, public ElementWidget {
  Q_OBJECT

 public:
  PushButton(QWidget* parent, const PageContext& page);
  QWidget& widget() override { return *this; }

 protected:
  void updateTo(const page::Node& leaf, const TextShape& shape) override;
  void endInteraction() override;
  void paintEvent(QPaintEvent*) override;
  void keyPressEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void paintPlain(QPainter& painter, const QRect& visible);
  void paintFramed(QPainter& painter, const QRect& visible);

  TextShape shape_;
  ui::ButtonStyle style_ = ui::ButtonStyle::automatic;
};

}  // namespace vemra::qt
