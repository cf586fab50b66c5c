#pragma once

#include "VemraPlatform/ui/NodeID.hpp"
#include "VemraQt/PageRows.hpp"
#include "apps/desk/window/FindBar.hpp"
#include "apps/desk/window/PeopleSearch.hpp"

#include <cstddef>
#include <optional>
#include <string>

#include <QObject>
#include <QPointer>

namespace vemra::desk {

class FoundMark;
class GoalScreens;

/// Finding people on the screen that is shown: the bar, the search, and the hit in the page. The
/// screen's tree and state stay as they are; only its scroll position and a mark over it change.
class FindPeople : public QObject {
  Q_OBJECT

 public:
  /// - Parameter screens: outlives this object.
  explicit FindPeople(GoalScreens& screens, QObject* parent = nullptr);

  /// For the window to place.
  FindBar& bar() const { return *bar_; }

  /// Shows the bar, with the text of the last search; first the screen, if it is covered.
  void open();
  /// Shows the next hit, or the first one behind the last; opens the bar where it is closed.
  void next() { step(1); }
  void previous() { step(-1); }
  /// Closes the bar, and returns to the place and the focus that the user had before. Returns
  /// whether the bar was open.
  bool close();
  /// Call it when the screen shows another result: searches the new result of the goal, and closes
  /// the bar for another goal or when no screen is shown.
  void screenChanged();

 Q_SIGNALS:
  /// Emitted when the user searches while the screen is covered; the receiver shows it.
  void screenWanted();

 private:
  /// What the user had before the bar opened.
  struct Origin {
    std::string goalID;
    qt::ReadingPlace place;
    QPointer<QWidget> focus;  ///< outside the page
  };

  bool hasScreen();
  void search(std::size_t from);
  void step(int by);
  void show(std::size_t hit);
  void showResult();
  /// The person of the shown hit, for a sentence.
  QString nameOfHit() const;
  void goToHit();
  void hideBar();
  ui::NodeID list() const;

  GoalScreens& screens_;
  FindBar* bar_;  ///< the window owns it
  PeopleSearch search_;
  std::optional<Origin> origin_;    ///< while the bar is open
  std::optional<std::size_t> hit_;  ///< which one of the hits is shown
  std::size_t row_ = 0;             ///< the person of that hit
  bool keepsPlace_ = false;         ///< the next hit is not scrolled to
  QPointer<QWidget> mark_;
};

}  // namespace vemra::desk
