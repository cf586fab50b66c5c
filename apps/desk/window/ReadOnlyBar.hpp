#pragma once

#include "apps/desk/window/AlertFrame.hpp"

class QLabel;

namespace vemra::desk {

/// A bar above the panes of a store that is open for reading only: the reason, and the possible
/// actions.
class ReadOnlyBar : public AlertFrame {
  Q_OBJECT

 public:
  explicit ReadOnlyBar(QWidget* parent = nullptr);

  /// - Parameter reason: a line for people; "" when the user chose to read only.
  void show(const QString& reason);

 Q_SIGNALS:
  void tryAgainWanted();

 private:
  QLabel* label_;
};

}  // namespace vemra::desk
