#pragma once

#include "VemraPlatform/page/Choices.hpp"
#include "VemraQt/accessibility/AccessibleElement.hpp"
#include "VemraQt/accessibility/ReadOnlyText.hpp"

#include <optional>
#include <vector>

namespace vemra::qt {

class LineField;
class TextShape;

/// A Text: a label, or in the title or headline font a heading, whose name is the text that it
/// shows.
class AccessibleText final : public AccessibleElement, public ReadOnlyText {
 public:
  using AccessibleElement::AccessibleElement;
  QAccessible::Role role() const override;
  using AccessibleElement::text;
  using ReadOnlyText::text;
  /// The level of a heading.
  QMap<QString, QString> objectAttributes() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

 protected:
  QString wholeText() const override { return textOf(QAccessible::Name); }
  QRect textRect() const override { return rect(); }
  std::optional<int> drawnAt(const QPoint& point) const override;
  QRect drawnRect(int offset) const override;

 private:
  const TextShape* shape() const;
};

/// A Button.
class AccessibleButton final : public AccessibleElement {
 public:
  using AccessibleElement::AccessibleElement;
  QAccessible::Role role() const override { return QAccessible::Button; }
};

/// A Picker: its title is its name, its current choice is a readable text, its choices are list
/// items.
class AccessiblePicker final : public AccessibleElement,
                               public ReadOnlyText,
                               public atspi::SelectionInterface {
 public:
  using AccessibleElement::AccessibleElement;
  QAccessible::Role role() const override { return QAccessible::ComboBox; }
  using AccessibleElement::text;
  using ReadOnlyText::text;
  QString textOf(QAccessible::Text kind) const override;
  QAccessible::State state() const override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* object) const override;
  void* interface_cast(QAccessible::InterfaceType type) override;
  void doAction(const QString& name) override;
  std::vector<AccessibleObject*> ownObjects() const override { return choices_; }

  int selectedItemCount() const override { return static_cast<int>(selectedItems().size()); }
  QList<QAccessibleInterface*> selectedItems() const override;
  bool select(QAccessibleInterface* choice) override;
  // A picker always has exactly one choice: a client can replace it, but neither remove nor extend
  // it.
  bool unselect(QAccessibleInterface*) override { return false; }
  bool selectAll() override { return false; }
  bool clear() override { return false; }

  /// The picker's current choices.
  std::vector<page::Choice> choices() const;

 protected:
  QString wholeText() const override;
  QRect textRect() const override { return rect(); }

 private:
  mutable std::vector<AccessibleObject*> choices_;
};

/// One choice of a picker.
class AccessibleChoice final : public AccessibleObject, public QAccessibleActionInterface {
 public:
  AccessibleChoice(AccessiblePicker& picker, std::size_t index)
      : AccessibleObject(picker.tree()), picker_(picker), index_(index) {}

  QAccessibleInterface* parent() const override { return &picker_; }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QString textOf(QAccessible::Text kind) const override;
  QRect rect() const override { return picker_.rect(); }
  QAccessible::State state() const override;
  QString identifier() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;
  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  std::optional<page::Choice> choice() const;

  AccessiblePicker& picker_;
  std::size_t index_;
};

/// A TextField: its title is its name. Clients can read and edit its text, even while it has no
/// widget.
class AccessibleField final : public AccessibleElement,
                              public ReadOnlyText,
                              public QAccessibleEditableTextInterface {
 public:
  using AccessibleElement::AccessibleElement;
  QAccessible::Role role() const override { return QAccessible::EditableText; }
  QString textOf(QAccessible::Text kind) const override;
  void setText(QAccessible::Text kind, const QString& text) override;
  using AccessibleElement::text;
  QString text(int start, int end) const override { return ReadOnlyText::text(start, end); }
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  void selection(int index, int* start, int* end) const override;
  int selectionCount() const override;
  void addSelection(int start, int end) override { setSelection(0, start, end); }
  void removeSelection(int index) override;
  void setSelection(int index, int start, int end) override;
  int cursorPosition() const override;
  void setCursorPosition(int position) override;

  void deleteText(int start, int end) override { replaceText(start, end, QString()); }
  void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
  void replaceText(int start, int end, const QString& text) override;

 protected:
  QString wholeText() const override;
  QRect textRect() const override { return rect(); }
  QRect drawnRect(int offset) const override;

 private:
  LineField* widget() const;
};

/// Makes the object for an element, list or section of that kind and registers it.
AccessibleObject* makeAccessibleObject(ObjectHost& tree, AccessibleRow* row,
                                       const ElementSlot& slot);

}  // namespace vemra::qt
