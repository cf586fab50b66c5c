#pragma once

#include "apps/desk/window/MessageFrame.hpp"

namespace vemra::desk {

/// A bar above the panes of a store that is open for reading only: the reason, and the possible
/// actions.
class ReadOnlyBar : public MessageFrame {
  Q_OBJECT

 public:
  explicit ReadOnlyBar(QWidget* parent = nullptr);

  /// - Parameter reason: a line for people; "" when the user chose to read only.
  void show(const QString& reason);

 Q_SIGNALS:
  void tryAgainWanted();
};

}  // namespace vemra::desk
