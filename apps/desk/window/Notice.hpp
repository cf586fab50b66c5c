#pragma once

#include "apps/desk/window/AlertFrame.hpp"

#include <functional>

class QLabel;
class QPushButton;

namespace vemra::desk {

/// A line at the bottom of the window that shows a failure until the user dismisses it.
class Notice : public AlertFrame {
  Q_OBJECT

 public:
  explicit Notice(QWidget* parent = nullptr);

  /// Shows a failure; only the beginning of a long text. With `again` it has a button to try again.
  void show(const QString& text, std::function<void()> again = nullptr);

 private:
  QLabel* label_;
  QPushButton* again_;
  std::function<void()> tryAgain_;
};

}  // namespace vemra::desk
