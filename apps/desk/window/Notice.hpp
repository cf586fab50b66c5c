#pragma once

#include "apps/desk/window/MessageFrame.hpp"

#include <functional>

namespace vemra::desk {

/// A line at the bottom of the window that shows a failure until the user dismisses it.
class Notice : public MessageFrame {
  Q_OBJECT

 public:
  explicit Notice(QWidget* parent = nullptr);

  /// Shows a failure. With `again` it has a button to try again.
  void show(const QString& text, std::function<void()> again = nullptr);

 private:
  QPushButton* again_;
  std::function<void()> tryAgain_;
};

}  // namespace vemra::desk
