#pragma once

#include <string>

#include <QPushButton>

namespace vemra::desk {

/// A goal in the list: its title on up to three lines; the background is coloured while the goal is
/// open.
class GoalRow : public QPushButton {
  Q_OBJECT

 public:
  explicit GoalRow(QWidget* parent = nullptr);

  /// Shows the title literally. The whole title is the accessible name, and the tool tip if the row
  /// cuts it off. A blank title is shown and named as "(no title)".
  void setTitle(const QString& title);
  /// The accessible name of a goal with that title.
  static QString nameOf(const QString& title);

  /// The id of the goal that is shown, byte for byte.
  const std::string& goalID() const { return goalID_; }
  void setGoalID(const std::string& goalID) { goalID_ = goalID; }

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void takeTitle(const QString& title);

  std::string goalID_;
  QString title_;
  QString shown_;          // on one line, shortened to what can be visible
  bool showsAll_ = false;  // `shown_` is the whole title, if the lines have room
};

}  // namespace vemra::desk
