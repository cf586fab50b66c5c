#pragma once

#include "apps/desk/window/ColourChoice.hpp"

#include <QMenuBar>
#include <QPointer>

class QAction;
class QMenu;

namespace vemra::desk {

/// The commands of the window, with the shortcuts of the platform. It emits a signal for each
/// command; only the commands on the text with the focus it carries out itself.
class MenuBar : public QMenuBar {
  Q_OBJECT

 public:
  explicit MenuBar(QWidget* window);

  /// Which commands are enabled.
  struct Uses {
    bool hasStore = false;    ///< a store is open
    bool mayImport = false;   ///< it may be written, and no import is running
    bool hasGoal = false;     ///< a goal is open
    bool hasDetails = false;  ///< the pane with details is shown
  };
  void setUses(const Uses& uses);
  /// Checks the command for these colours.
  void setColours(Colours colours);

 Q_SIGNALS:
  void openStoreWanted();
  void importWanted();
  void exportWanted();
  void closeWanted();
  void quitWanted();
  void findWanted();
  void findNextWanted();
  void findPreviousWanted();
  void largerTextWanted();
  void smallerTextWanted();
  void usualTextWanted();
  void coloursWanted(Colours colours);
  void closeDetailsWanted();
  void nextGoalWanted();
  void previousGoalWanted();
  void nextPaneWanted();
  void previousPaneWanted();
  void keyboardHelpWanted();
  void aboutWanted();
  /// Emitted before a menu is shown: call `setUses`.
  void aboutToBeUsed();

 private:
  using Signal = void (MenuBar::*)();

  QMenu* addNamedMenu(const QString& title);
  QAction* add(QMenu& menu, const QString& title, const QList<QKeySequence>& keys,
               Signal wanted) const;
  void addEditMenu();
  void addFinding(QMenu& edit);
  void addColours(QMenu& view);
  /// A command that calls a slot of the text with the focus, such as "copy".
  void addEdit(QMenu& menu, const QString& title, QKeySequence::StandardKey key, const char* slot);
  QWidget* textWithFocus(const char* slot) const;

  QPointer<QWidget> focus_;  ///< in the window, outside the menus

  QList<QAction*> finding_;
  QList<QAction*> colours_;  ///< in the order of `Colours`
  QAction* import_;
  QAction* export_;
  QAction* details_;
  QAction* next_;
  QAction* previous_;
};

}  // namespace vemra::desk
