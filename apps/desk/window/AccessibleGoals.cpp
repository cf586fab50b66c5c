#include "apps/desk/window/AccessibleGoals.hpp"

#include "VemraQt/atspi/ChildSignals.hpp"
#include "VemraQt/atspi/LaterQt.hpp"
#include "VemraQt/atspi/SelectionSignal.hpp"
#include "apps/desk/window/AccessibleGoalRow.hpp"
#include "apps/desk/window/GoalPositions.hpp"
#include "apps/desk/window/GoalRow.hpp"
#include "apps/desk/window/ListedGoals.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <cstdlib>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <QAccessibleWidget>
#include <QLabel>
#include <QPointer>
#include <QWindow>

namespace vemra::desk {
namespace {

/// Up to this many changes are announced one by one; beyond it, clients get one notification to
/// read all goals again.
constexpr std::size_t mostSentOneByOne = 32;

/// A goal without a widget. It represents the goal at its index, even when the list has changed.
class AccessibleGoal final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  AccessibleGoal(GoalColumn& column, std::size_t index) : column_(&column), index_(index) {}

  bool isValid() const override {
    return column_ && column_->list() && index_ < column_->list()->goals().size();
  }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return column_ ? column_->window()->windowHandle() : nullptr; }
  QAccessibleInterface* parent() const override {
    return column_ ? QAccessible::queryAccessibleInterface(column_) : nullptr;
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  std::size_t index() const { return index_; }

  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name || !isValid()) return {};
    QString name = shownName();
    announcedName_ = qHash(name);
    return name;
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override {
    if (!isValid()) return {};
    const QRect rect = column_->list()->rowRect(index_);
    return {column_->mapToGlobal(rect.topLeft()), rect.size()};
  }
  QAccessible::Role role() const override { return QAccessible::RadioButton; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.invalid = state.disabled = !isValid();
    if (!isValid()) return state;
    state.checkable = state.selectable = state.focusable = true;
    state.checked = state.selected = isOpen();
    announcedOpen_ = isOpen();
    state.offscreen = true;
    state.invisible = !column_->isVisible();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
  }
  QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  void doAction(const QString& action) override {
    if (!isValid()) return;
    if (action == pressAction()) column_->list()->choose(index_);
    if (action == setFocusAction()) column_->list()->focusRow(index_);
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

  /// These return whether the goal's name, or its state, differs from the announced one, and store
  /// the new one, because the caller announces it next. They return false when no client has asked
  /// for it.
  bool updateAnnouncedName() {
    if (!announcedName_ || !isValid()) return false;
    const std::size_t name = qHash(shownName());
    return std::exchange(*announcedName_, name) != name;
  }
  bool updateAnnouncedOpen() {
    if (!announcedOpen_ || !isValid()) return false;
    return std::exchange(*announcedOpen_, isOpen()) != isOpen();
  }

 private:
  QString shownName() const {
    return GoalRow::nameOf(fromUTF8(column_->list()->goals()[index_].title));
  }
  bool isOpen() const { return column_->list()->openIndex() == index_; }

  QPointer<GoalColumn> column_;
  std::size_t index_;
  mutable std::optional<std::size_t> announcedName_;  // a hash of the name
  mutable std::optional<bool> announcedOpen_;
};

/// The heading, then the goals. Counting the goals or finding one examines no other goal.
///
/// One goal is selected, the open one. A client can select another one, and it is opened.
class AccessibleColumn final : public QAccessibleWidget, public qt::atspi::SelectionInterface {
 public:
  explicit AccessibleColumn(GoalColumn& column) : QAccessibleWidget(&column, QAccessible::List) {}
  ~AccessibleColumn() override {
    for (const auto& [index, id] : known_) QAccessible::deleteAccessibleInterface(id);
  }

  /// The list has the name of its heading.
  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Name && list()) return list()->heading().text();
    return QAccessibleWidget::text(kind);
  }

  int childCount() const override {
    announcedCount_ = count();
    return *announcedCount_;
  }

  QAccessibleInterface* child(int place) const override {
    if (place < 0 || place >= count()) return nullptr;
    if (place == 0) return QAccessible::queryAccessibleInterface(&list()->heading());
    const auto index = static_cast<std::size_t>(place - 1);
    if (GoalRow* row = list()->row(index)) return QAccessible::queryAccessibleInterface(row);
    QAccessible::Id& id = known_[index];
    if (id == 0) id = QAccessible::registerAccessibleInterface(new AccessibleGoal(column(), index));
    return QAccessible::accessibleInterface(id);
  }

  int indexOfChild(const QAccessibleInterface* child) const override {
    if (!list()) return -1;
    if (const auto* goal = dynamic_cast<const AccessibleGoal*>(child)) {
      return goal->isValid() ? 1 + static_cast<int>(goal->index()) : -1;
    }
    QObject* object = child ? child->object() : nullptr;
    if (object == &list()->heading()) return 0;
    const auto* row = qobject_cast<GoalRow*>(object);
    const auto index = row ? list()->indexOf(*row) : std::nullopt;
    return index ? 1 + static_cast<int>(*index) : -1;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (qt::atspi::asksForSelection(type)) return static_cast<qt::atspi::SelectionInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  int selectedItemCount() const override { return static_cast<int>(selectedItems().size()); }
  QList<QAccessibleInterface*> selectedItems() const override {
    const auto open = list() ? list()->openIndex() : std::nullopt;
    if (!open) return {};
    return {child(1 + static_cast<int>(*open))};
  }
  bool select(QAccessibleInterface* goal) override {
    const int place = indexOfChild(goal);
    if (place < 1) return false;
    list()->choose(static_cast<std::size_t>(place - 1));
    return true;
  }
  bool unselect(QAccessibleInterface*) override { return false; }
  bool selectAll() override { return false; }
  bool clear() override { return false; }

  QAccessibleInterface* childAt(int x, int y) const override {
    QWidget* at = column().childAt(column().mapFromGlobal(QPoint(x, y)));
    return at ? QAccessible::queryAccessibleInterface(at) : nullptr;
  }

  /// Announces all changes. A client that handles an event may do anything, even destroy the list,
  /// so this collects the changed goals before it announces them.
  void announce() {
    const QPointer<GoalColumn> alive(&column());
    announceCount();
    std::vector<QAccessible::Id> renamed, opened;
    for (const auto& [index, id] : known_) {
      auto& goal = *static_cast<AccessibleGoal*>(QAccessible::accessibleInterface(id));
      if (goal.updateAnnouncedName()) renamed.push_back(id);
      if (goal.updateAnnouncedOpen()) opened.push_back(id);
    }
    if (renamed.size() > mostSentOneByOne) {
      announceUnlisted();
      renamed.clear();
    }
    for (const QAccessible::Id id : renamed) {
      QAccessibleInterface* goal = QAccessible::accessibleInterface(id);
      if (!goal) return;
      QAccessibleEvent event(goal, QAccessible::NameChanged);
      QAccessible::updateAccessibility(&event);
    }
    QAccessible::State changed;
    changed.checked = true;
    for (const QAccessible::Id id : opened) {
      QAccessibleInterface* goal = QAccessible::accessibleInterface(id);
      if (!goal) return;
      QAccessibleStateChangeEvent event(goal, changed);
      QAccessible::updateAccessibility(&event);
    }
    if (alive) announceSelection();
  }

 private:
  int count() const { return list() ? 1 + static_cast<int>(list()->goals().size()) : 0; }

  /// Announces the change of the number of goals. A goal is identified by its index, so goals are
  /// added and removed at the end.
  void announceCount() {
    using Kind = qt::atspi::ChildChange::Kind;
    if (!announcedCount_ || !qt::atspi::sendsChildSignals()) return;
    const int before = std::exchange(*announcedCount_, count());
    const int now = *announcedCount_;
    if (static_cast<std::size_t>(std::abs(now - before)) > mostSentOneByOne) {
      announceUnlisted();
      return;
    }
    const QAccessible::Id self = QAccessible::uniqueId(this);
    for (int place = before - 1; place >= now; --place) {
      const auto index = static_cast<std::size_t>(place);
      const auto known = known_.find(index - 1);
      qt::atspi::sendChildSignal(
          self, {Kind::removed, self, index, known == known_.end() ? 0 : known->second});
    }
    for (int place = before; place < now; ++place) {
      qt::atspi::sendChildSignal(self,
                                 {Kind::added, self, static_cast<std::size_t>(place), idAt(place)});
    }
  }
  /// Announces that another goal is the selected one, but not the first one.
  void announceSelection() {
    const auto open = list() ? list()->openIndex() : std::nullopt;
    std::string now = open ? list()->goals()[*open].id : std::string();
    const std::string before = std::exchange(announcedSelection_, now);
    if (before.empty() || before == now || !open) return;
    qt::atspi::sendSelectionSignal(QAccessible::uniqueId(this));
    QAccessibleEvent event(child(1 + static_cast<int>(*open)), QAccessible::Selection);
    QAccessible::updateAccessibility(&event);
  }
  void announceUnlisted() {
    const QAccessible::Id self = QAccessible::uniqueId(this);
    if (!qt::atspi::sendsChildSignals()) return;
    qt::atspi::sendChildSignal(self, {qt::atspi::ChildChange::Kind::unlisted, self, 0, idAt(0)});
  }
  QAccessible::Id idAt(int place) const {
    QAccessibleInterface* at = child(place);
    return at ? QAccessible::uniqueId(at) : 0;
  }

  GoalColumn& column() const { return *static_cast<GoalColumn*>(widget()); }
  ListedGoals* list() const { return column().list(); }

  mutable std::unordered_map<std::size_t, QAccessible::Id> known_;
  mutable std::optional<int> announcedCount_;
  std::string announcedSelection_;  // the id of the goal
  GoalPositions positions_{*this};
};

QAccessibleInterface* makeColumnOrRow(const QString&, QObject* object) {
  auto* column = qobject_cast<GoalColumn*>(object);
  if (column) return new AccessibleColumn(*column);
  auto* row = qobject_cast<GoalRow*>(object);
  return row ? new AccessibleGoalRow(*row) : nullptr;
}

}  // namespace

GoalColumn::GoalColumn(ListedGoals& list) : list_(&list) {
  static const bool installed = (QAccessible::installFactory(makeColumnOrRow), true);
  static_cast<void>(installed);
}

void GoalColumn::announce() {
  if (!QAccessible::isActive() || !list_) return;
  auto* column = dynamic_cast<AccessibleColumn*>(QAccessible::queryAccessibleInterface(this));
  if (column) column->announce();
}

}  // namespace vemra::desk
