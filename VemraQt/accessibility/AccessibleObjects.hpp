#pragma once

#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/atspi/LaterQt.hpp"

#include <cstdint>

#include <QAccessibleInterface>

/// \file
/// The objects that stand for rows and elements towards assistive technology.

namespace vemra::qt {

/// What all objects of a tree have in common. They have no `object()`: elements come and go without
/// widgets.
class AccessibleObject : public QAccessibleInterface {
 public:
  explicit AccessibleObject(AccessibleTree& tree) : tree_(tree) {}

  // An object that stands for nothing any more is deleted soon; until then it answers.
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
  /// Byte for byte; "" without one.
  virtual QString identifier() const { return QStringLiteral(""); }
  /// Its name, its value; null of what it does not have.
  virtual QString textOf(QAccessible::Text kind) const = 0;
  virtual void scrollIn() {}
  AccessibleTree& tree() const { return tree_; }
  void remember(QAccessible::Id id) { id_ = id; }
  /// It stands for nothing any more and will be deleted.
  void leave() { leaving_ = true; }
  bool isLeaving() const { return leaving_; }
  /// The object of that id, as long as it stands for something.
  static AccessibleObject* living(QAccessible::Id id);

  enum class Heard { nothing, no, yes };
  Heard showing = Heard::nothing;  ///< what clients have heard of it

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
  /// Whether its name is another one than clients have heard, which they are about to hear; false
  /// when none has asked.
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
  ui::NodeID knownNode;       ///< whose elements `known` are
  std::uint64_t knownAt = 0;  ///< how much had been described then

 private:
  QString shownName() const;

  mutable std::optional<std::size_t> heardName_;  ///< a hash of it
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
  /// The element's node now; nullptr when it is gone.
  const ui::Node* node() const;
  /// The choices of a picker: objects that go with it.
  virtual std::vector<AccessibleObject*> ownObjects() const { return {}; }

 private:
  AccessibleRow* row_;
  std::uint64_t path_;
};

/// Makes the object for an element of that kind and registers it.
AccessibleElement* makeAccessibleElement(AccessibleTree& tree, AccessibleRow* row,
                                         const ElementSlot& slot);

}  // namespace vemra::qt
