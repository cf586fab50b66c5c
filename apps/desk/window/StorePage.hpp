#pragma once

#include "apps/desk/window/StoreOpening.hpp"

#include <QWidget>

class QLabel;
class QPushButton;

namespace vemra::desk {

/// Shown in place of the goals when a store cannot be opened: the reason, and the possible actions.
class StorePage : public QWidget {
  Q_OBJECT

 public:
  explicit StorePage(QWidget* parent = nullptr);

  /// Shows why the store of `opening` is not open, and announces it.
  void setProblem(const StoreOpening& opening);

 Q_SIGNALS:
  void tryAgainWanted();
  void readingWanted();
  void anotherWanted();

 private:
  QLabel* reason_;
  QPushButton* read_;
};

}  // namespace vemra::desk
