#pragma once

#include <functional>

#include <QFrame>

class QLabel;
class QPushButton;

namespace vemra::desk {

/// A line at the foot of the window that says what went wrong, until it is put away.
class Notice : public QFrame {
  Q_OBJECT

 public:
  explicit Notice(QWidget* parent = nullptr);

  /// Shows a failure, of a long text the beginning. With `again` it offers to try again.
  void show(const QString& text, std::function<void()> again = nullptr);

 private:
  QLabel* label_;
  QPushButton* again_;
  std::function<void()> tryAgain_;
};

}  // namespace vemra::desk
