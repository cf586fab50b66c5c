#pragma once

#include <QSplitter>

namespace vemra::desk {

/// The goals, the page of the open goal, and the details, side by side. Where the window is too
/// narrow for all of them, the goals give way first, then the page: at the narrowest, one pane fills
/// the window. The widths count characters, so panes also give way to large texts.
///
/// The details are shown while they are not hidden; the goals while they are wanted and there is
/// room, or the user has gone to them.
class Panes : public QSplitter {
  Q_OBJECT

 public:
  Panes(QWidget* goals, QWidget* page, QWidget* details);

  /// Whether there are goals to show.
  void setGoalsWanted(bool wanted);
  /// Shows the goals, in a narrow window in place of the page. The details must be hidden.
  void goToGoals();
  /// Shows the page in place of the goals where they have no room beside each other. Returns whether
  /// it has done so.
  bool leaveGoals();
  /// Whether goals are wanted and not shown.
  bool hideGoals() const;

  /// Narrower than the panes together, since they give way.
  QSize minimumSizeHint() const override { return {1, QSplitter::minimumSizeHint().height()}; }

 Q_SIGNALS:
  /// Emitted when the goals have given way or have room again.
  void goalsGaveWay(bool areHidden);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void arrange();

  QWidget* goals_;
  QWidget* page_;
  QWidget* details_;
  bool goalsWanted_ = false;
  bool inGoals_ = false;  ///< the user has gone to the goals in a narrow window
  bool gaveWay_ = false;
  bool arranging_ = false;
};

}  // namespace vemra::desk
