#pragma once

#include <QPushButton>

namespace vemra::desk {

/// A goal in the list: its title on up to three lines, on a coloured ground while it is open.
class GoalRow : public QPushButton {
  Q_OBJECT

 public:
  explicit GoalRow(QWidget* parent = nullptr);

  /// Shows the title literally; what does not fit is left to its accessible name.
  void setTitle(const QString& title);

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString shown_;
};

}  // namespace vemra::desk
