#pragma once

#include "apps/desk/window/MessageFrame.hpp"

namespace vemra::desk {

/// Shown instead of the screen when a goal could not be loaded: the reason, and a button to try
/// again.
class FailurePage : public MessageFrame {
  Q_OBJECT

 public:
  explicit FailurePage(QWidget* parent = nullptr);

  /// Shows a reason, which is a sentence or a line for people.
  void setReason(const QString& reason) { setMessage(reason); }

 Q_SIGNALS:
  void tryAgainWanted();
};

}  // namespace vemra::desk
