#pragma once

#include "apps/desk/window/MessageFrame.hpp"
#include "apps/desk/window/StoreOpening.hpp"

namespace vemra::desk {

/// Shown in place of the goals when a store cannot be opened: the reason, and the possible actions.
class StorePage : public MessageFrame {
  Q_OBJECT

 public:
  explicit StorePage(QWidget* parent = nullptr);

  /// Shows why the store of `opening` is not open.
  void setProblem(const StoreOpening& opening);

 Q_SIGNALS:
  void tryAgainWanted();
  void readingWanted();
  void anotherWanted();

 private:
  QPushButton* read_;
};

}  // namespace vemra::desk
