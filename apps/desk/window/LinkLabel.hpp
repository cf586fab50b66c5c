#pragma once

#include "apps/desk/window/RoleLabel.hpp"

#include <optional>

#include <QPoint>

namespace vemra::desk {

/// A text that leads somewhere, in the page's colour of links: a click, Return or Space presses it.
/// The text can still be selected with the mouse. For assistive technology it is a link with the
/// action `Press`.
class LinkLabel : public RoleLabel {
  Q_OBJECT

 public:
  LinkLabel(const QString& text, TextRole role);

 Q_SIGNALS:
  void pressed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void underline(bool on);

  std::optional<QPoint> pressedAt_;  ///< while the left button is down, and not for a double click
};

}  // namespace vemra::desk
