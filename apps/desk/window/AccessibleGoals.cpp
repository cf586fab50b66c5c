#include "apps/desk/window/AccessibleGoals.hpp"

#include "apps/desk/window/GoalList.hpp"
#include "apps/desk/window/GoalRow.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <unordered_map>

#include <QAccessibleWidget>
#include <QLabel>
#include <QPointer>
#include <QWindow>

namespace vemra::desk {
namespace {

/// A goal that has no widget. It is that of its index, whatever goals the list has by then.
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
    return GoalRow::nameOf(fromUTF8(column_->list()->goals()[index_].title));
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
    state.checkable = state.focusable = true;
    state.checked = column_->list()->openIndex() == index_;
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

 private:
  QPointer<GoalColumn> column_;
  std::size_t index_;
};

/// The heading, then the goals. Neither counting them nor finding one looks at the others.
class AccessibleColumn final : public QAccessibleWidget {
 public:
  explicit AccessibleColumn(GoalColumn& column) : QAccessibleWidget(&column) {}
  ~AccessibleColumn() override {
    for (const auto& [index, id] : known_) QAccessible::deleteAccessibleInterface(id);
  }

  int childCount() const override {
    return list() ? 1 + static_cast<int>(list()->goals().size()) : 0;
  }

  QAccessibleInterface* child(int place) const override {
    if (place < 0 || place >= childCount()) return nullptr;
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

  QAccessibleInterface* childAt(int x, int y) const override {
    QWidget* at = column().childAt(column().mapFromGlobal(QPoint(x, y)));
    return at ? QAccessible::queryAccessibleInterface(at) : nullptr;
  }

 private:
  GoalColumn& column() const { return *static_cast<GoalColumn*>(widget()); }
  GoalList* list() const { return column().list(); }

  mutable std::unordered_map<std::size_t, QAccessible::Id> known_;
};

QAccessibleInterface* makeColumn(const QString&, QObject* object) {
  auto* column = qobject_cast<GoalColumn*>(object);
  return column ? new AccessibleColumn(*column) : nullptr;
}

}  // namespace

GoalColumn::GoalColumn(GoalList& list) : list_(&list) {
  static const bool installed = (QAccessible::installFactory(makeColumn), true);
  static_cast<void>(installed);
}

}  // namespace vemra::desk
