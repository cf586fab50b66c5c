#include "apps/desk/window/MenuBar.hpp"

#include "apps/desk/window/Localized.hpp"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMetaObject>
#include <QShortcut>

namespace vemra::desk {

MenuBar::MenuBar(QWidget* window) : QMenuBar(window) {
  setObjectName("desk.menus");
  QMenu* file = addNamedMenu(localized("&File"));
  add(*file, localized("&Open Store…"), QKeySequence::keyBindings(QKeySequence::Open),
      &MenuBar::openStoreWanted);
  import_ = add(*file, localized("&Import…"), {}, &MenuBar::importWanted);
  export_ = add(*file, localized("&Export Goal…"), {}, &MenuBar::exportWanted);
  file->addSeparator();
  add(*file, localized("&Close"), QKeySequence::keyBindings(QKeySequence::Close),
      &MenuBar::closeWanted);
  QAction* quit =
      add(*file, localized("&Quit"), {QKeySequence(Qt::CTRL | Qt::Key_Q)}, &MenuBar::quitWanted);
  quit->setMenuRole(QAction::QuitRole);

  addEditMenu();

  QMenu* view = addNamedMenu(localized("&View"));
  add(*view, localized("&Larger Text"),
      {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
      &MenuBar::largerTextWanted);
  add(*view, localized("&Smaller Text"), {QKeySequence(Qt::CTRL | Qt::Key_Minus)},
      &MenuBar::smallerTextWanted);
  add(*view, localized("&Usual Text"), {QKeySequence(Qt::CTRL | Qt::Key_0)},
      &MenuBar::usualTextWanted);
  view->addSeparator();
  addColours(*view);
  // Escape does the same, but not only: a menu or a dialog takes it first.
  details_ = add(*view, localized("Close &Details"), {}, &MenuBar::closeDetailsWanted);

  QMenu* go = addNamedMenu(localized("&Go"));
  next_ = add(*go, localized("&Next Goal"), {QKeySequence(Qt::CTRL | Qt::Key_PageDown)},
              &MenuBar::nextGoalWanted);
  previous_ = add(*go, localized("&Previous Goal"), {QKeySequence(Qt::CTRL | Qt::Key_PageUp)},
                  &MenuBar::previousGoalWanted);
  go->addSeparator();
  add(*go, localized("Next P&ane"), {QKeySequence(Qt::Key_F6)}, &MenuBar::nextPaneWanted);
  add(*go, localized("Previous Pan&e"), {QKeySequence(Qt::SHIFT | Qt::Key_F6)},
      &MenuBar::previousPaneWanted);

  QMenu* help = addNamedMenu(localized("&Help"));
  add(*help, localized("&Keyboard"), {QKeySequence(Qt::Key_F1)}, &MenuBar::keyboardHelpWanted);
  QAction* about = add(*help, localized("&About Vemra Desk"), {}, &MenuBar::aboutWanted);
  about->setMenuRole(QAction::AboutRole);

  auto* toMenus = new QShortcut(Qt::Key_F10, window);
  connect(toMenus, &QShortcut::activated, this,
          [this] { setActiveAction(actions().constFirst()); });
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    const bool isMenu = now == this || qobject_cast<QMenu*>(now) != nullptr;
    if (now != nullptr && !isMenu && now->window() == this->window()) focus_ = now;
  });
}

QMenu* MenuBar::addNamedMenu(const QString& title) {
  QMenu* menu = addMenu(title);
  connect(menu, &QMenu::aboutToShow, this, &MenuBar::aboutToBeUsed);
  return menu;
}

QAction* MenuBar::add(QMenu& menu, const QString& title, const QList<QKeySequence>& keys,
                      Signal wanted) const {
  QAction* action = menu.addAction(title);
  action->setShortcuts(keys);
  connect(action, &QAction::triggered, this, wanted);
  return action;
}

void MenuBar::addEditMenu() {
  QMenu* edit = addNamedMenu(localized("&Edit"));
  addEdit(*edit, localized("&Undo"), QKeySequence::Undo, "undo");
  addEdit(*edit, localized("&Redo"), QKeySequence::Redo, "redo");
  edit->addSeparator();
  addEdit(*edit, localized("Cu&t"), QKeySequence::Cut, "cut");
  addEdit(*edit, localized("&Copy"), QKeySequence::Copy, "copy");
  addEdit(*edit, localized("&Paste"), QKeySequence::Paste, "paste");
  edit->addSeparator();
  addEdit(*edit, localized("Select &All"), QKeySequence::SelectAll, "selectAll");
  edit->addSeparator();
  addFinding(*edit);
}

void MenuBar::addFinding(QMenu& edit) {
  finding_ = {
      add(edit, localized("&Find…"), QKeySequence::keyBindings(QKeySequence::Find),
          &MenuBar::findWanted),
      add(edit, localized("Find &Next"), QKeySequence::keyBindings(QKeySequence::FindNext),
          &MenuBar::findNextWanted),
      add(edit, localized("Find Pre&vious"), QKeySequence::keyBindings(QKeySequence::FindPrevious),
          &MenuBar::findPreviousWanted)};
}

void MenuBar::addColours(QMenu& view) {
  QMenu* menu = view.addMenu(localized("&Colours"));
  auto* group = new QActionGroup(menu);
  const QStringList titles{localized("Like the &System"), localized("&Light"), localized("&Dark")};
  for (const QString& title : titles) {
    QAction* action = group->addAction(menu->addAction(title));
    action->setCheckable(true);
    const auto colours = static_cast<Colours>(colours_.size());
    connect(action, &QAction::triggered, this, [this, colours] { Q_EMIT coloursWanted(colours); });
    colours_.append(action);
  }
}

void MenuBar::setColours(Colours colours) {
  colours_[static_cast<qsizetype>(colours)]->setChecked(true);
}

void MenuBar::addEdit(QMenu& menu, const QString& title, QKeySequence::StandardKey key,
                      const char* slot) {
  QAction* action = menu.addAction(title);
  action->setShortcuts(QKeySequence::keyBindings(key));
  // A focused text handles these keys itself; without one they must have no effect.
  action->setShortcutContext(Qt::WidgetShortcut);
  action->setObjectName(QLatin1String("desk.edit.") + QLatin1String(slot));
  connect(&menu, &QMenu::aboutToShow, action,
          [this, action, slot] { action->setEnabled(textWithFocus(slot) != nullptr); });
  connect(action, &QAction::triggered, this, [this, slot] {
    if (QWidget* text = textWithFocus(slot)) QMetaObject::invokeMethod(text, slot);
  });
}

QWidget* MenuBar::textWithFocus(const char* slot) const {
  auto* field = qobject_cast<QLineEdit*>(focus_.data());
  if (field == nullptr) return nullptr;
  const QLatin1String name(slot);
  const bool isCopy = name == QLatin1String("copy");
  const bool changes = !isCopy && name != QLatin1String("selectAll");
  if (changes && field->isReadOnly()) return nullptr;
  if ((isCopy || name == QLatin1String("cut")) && !field->hasSelectedText()) return nullptr;
  if (name == QLatin1String("undo") && !field->isUndoAvailable()) return nullptr;
  if (name == QLatin1String("redo") && !field->isRedoAvailable()) return nullptr;
  return field;
}

void MenuBar::setUses(const Uses& uses) {
  import_->setEnabled(uses.mayImport);
  export_->setEnabled(uses.hasGoal);
  for (QAction* action : finding_) action->setEnabled(uses.hasGoal);
  details_->setEnabled(uses.hasDetails);
  next_->setEnabled(uses.hasStore);
  previous_->setEnabled(uses.hasStore);
}

}  // namespace vemra::desk
