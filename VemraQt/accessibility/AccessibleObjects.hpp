#pragma once

#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/atspi/LaterQt.hpp"

#include <cstdint>

#include <QAccessibleInterface>

/// \file
/// The accessible objects of rows and elements, as assistive technology sees them.

namespace vemra::qt {

/// The base of all accessible objects of a tree. Their `object()` is nullptr, because elements come
/// and go without widgets.
class AccessibleObject : public QAccessibleInterface {
 public:
  explicit AccessibleObject(AccessibleTree& tree) : tree_(tree) {}

  // An object whose row or element is gone is deleted soon; until then it answers calls, so it is
  // valid.
  bool isValid() const override { return true; }
  QObject* object() const override { return nullptr; }
  QString text(QAccessible::Text kind) const final {
    return atspi::asksForIdentifier(kind) ? identifier() : textOf(kind);
  }
  void setText(QAccessible::Text, const QString&) override {}
  QAccessibleInterface* childAt(int x, int y) const override;
  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  QAccessible::Id id() const { return id_; }
  /// The accessibility identifier byte for byte; "" when the object has none.
  virtual QString identifier() const { return QStringLiteral(""); }
  /// The object's name or value; a null string for a kind of text that the object does not have.
  virtual QString textOf(QAccessible::Text kind) const = 0;
  virtual void scrollIn() {}
  AccessibleTree& tree() const { return tree_; }
  void remember(QAccessible::Id id) { id_ = id; }
  /// Marks the object as leaving, because its row or element is gone; `LeavingObjects` deletes it.
  void leave() { leaving_ = true; }
  bool isLeaving() const { return leaving_; }
  /// The object with that id; nullptr when there is none or when it is leaving.
  static AccessibleObject* living(QAccessible::Id id);

  enum class Heard { nothing, no, yes };
  Heard showing = Heard::nothing;  ///< the visibility last reported to clients

 private:
  AccessibleTree& tree_;
  QAccessible::Id id_ = 0;
  bool leaving_ = false;
};

/// A row of a list: a group, named by the first text or title in it.
class AccessibleRow final : public AccessibleObject {
 public:
  AccessibleRow(AccessibleTree& tree, ui::NodeID itsList, std::size_t itsIndex, std::string itsID)
      : AccessibleObject(tree), list(itsList), index(itsIndex), rowID(std::move(itsID)) {}

  QAccessibleInterface* parent() const override { return tree().pageObject(); }
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* object) const override;
  QString textOf(QAccessible::Text kind) const override;
  /// Whether the row's name differs from the one last reported to clients. Stores the new name,
  /// because the caller announces it next. False when no client has asked for the name.
  bool hearName();
  QRect rect() const override;
  QAccessible::Role role() const override { return QAccessible::Grouping; }
  QAccessible::State state() const override;
  QString identifier() const override;
  void scrollIn() override;

  const ui::NodeID list;
  std::size_t index;
  const std::string rowID;
  std::vector<ElementSlot> known;
  ui::NodeID knownNode;       ///< the row's node when `known` was made
  std::uint64_t knownAt = 0;  ///< the graph's count of described bodies and rows at that time

 private:
  QString shownName() const;

  mutable std::optional<std::size_t> heardName_;  ///< hash of the name last reported
};

/// An element (a text, button, picker or text field), by its path in the page (no row) or in a row.
class AccessibleElement : public AccessibleObject, public QAccessibleActionInterface {
 public:
  AccessibleElement(AccessibleTree& tree, AccessibleRow* row, std::uint64_t path)
      : AccessibleObject(tree), row_(row), path_(path) {}

  QAccessibleInterface* parent() const override;
  QString textOf(QAccessible::Text kind) const override;
  QRect rect() const override;
  QAccessible::State state() const override;
  QString identifier() const override;
  void scrollIn() override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

  AccessibleRow* row() const { return row_; }
  std::uint64_t path() const { return path_; }
  /// The element's current node; nullptr when the element is gone.
  const ui::Node* node() const;
  /// The objects of a picker's choices, which leave together with the picker.
  virtual std::vector<AccessibleObject*> ownObjects() const { return {}; }

 private:
  AccessibleRow* row_;
  std::uint64_t path_;
};

/// Makes the object for an element of that kind and registers it.
AccessibleElement* makeAccessibleElement(AccessibleTree& tree, AccessibleRow* row,
                                         const ElementSlot& slot);

}  // namespace vemra::qt
