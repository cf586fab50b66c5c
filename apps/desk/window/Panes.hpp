#pragma once

#include <vector>

#include <QSplitter>

namespace vemra::desk {

/// The goals, the page of the open goal, and the details, side by side. Where the window is too
/// narrow for all of them, the pane in front is shown, with the page beside it if there is room;
/// the page in front has the details beside it, or else the goals. At the narrowest, one pane fills
/// the window. The widths count characters, so panes also give way to large texts.
///
/// In front are the details while they are not hidden, else the page, until the user goes to
/// another pane. A window with room for all panes ends that choice: when it is narrowed again, the
/// open details or the page are in front.
class Panes : public QSplitter {
  Q_OBJECT

 public:
  enum class Pane { goals, page, details };

  Panes(QWidget* goals, QWidget* page, QWidget* details);

  /// Whether there are goals to show.
  void setGoalsWanted(bool wanted);
  /// The panes that there are, also those that give way: the goals while they are wanted, the page,
  /// and the details while they are not hidden.
  std::vector<Pane> panes() const;
  QWidget& widget(Pane pane) const;
  /// Shows a pane that there is, in a narrow window in place of others.
  void bringToFront(Pane pane);
  /// Shows the page in place of the goals where they have no room beside each other. Returns
  /// whether it has done so.
  bool leaveGoals();
  /// The widths that the user, or the first arrangement, has given to the panes beside the page; also
  /// while they give way.
  struct SideWidths {
    int goals = 0;
    int details = 0;
  };
  SideWidths sideWidths() const { return sideWidths_; }
  /// Call before the panes are shown. A width that is not positive leaves that pane as it is.
  void setSideWidths(SideWidths widths);
  /// Whether the goals are in front, in place of others.
  bool areGoalsInFront() const { return front_ == Pane::goals; }
  /// Brings the goals to the front once there are any.
  void preferGoals(bool prefer) { goalsPreferred_ = prefer; }
  /// Whether goals are wanted and not shown.
  bool hideGoals() const;

  /// Narrower than the panes together, since they give way.
  QSize minimumSizeHint() const override { return {1, QSplitter::minimumSizeHint().height()}; }

 Q_SIGNALS:
  /// Emitted when the goals have given way or have room again.
  void goalsGaveWay(bool areHidden);

 protected:
  QSplitterHandle* createHandle() override;
  bool eventFilter(QObject* object, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool hasDetails() const { return !details_->isHidden(); }
  void arrange();
  void applySideWidths();
  void noteWidth(int index);

  QWidget* goals_;
  QWidget* page_;
  QWidget* details_;
  QWidget* detailsPane_;  ///< around the details: hidden while they give way
  bool goalsWanted_ = false;
  Pane front_ = Pane::page;
  bool gaveWay_ = false;
  bool arranging_ = false;
  bool goalsPreferred_ = false;
  bool wasShown_ = false;
  SideWidths sideWidths_{230, 290};
};

}  // namespace vemra::desk
