#pragma once

#include "VemraQt/accessibility/AccessibleRow.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace vemra::qt {

/// An element (a text, button, picker or text field), by its path in the page (no row) or in a row.
class AccessibleElement : public AccessibleObject, public QAccessibleActionInterface {
 public:
  AccessibleElement(ObjectHost& tree, AccessibleRow* row, std::uint64_t path)
      : AccessibleObject(tree), row_(row), path_(path) {}

  QAccessibleInterface* parent() const override;
  QString textOf(QAccessible::Text kind) const override;
  /// Estimated when the element has no frame now.
  QRect rect() const override;
  QAccessible::State state() const override;
  QString identifier() const override;
  void scrollIn() override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override;
  /// May remove this object.
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

  /// Whether the description differs from the one last reported to clients. Stores the new one,
  /// because the caller announces it next. False when no client has asked for it.
  bool updateReportedDescription();

  /// The element's current node; nullptr when the element is gone.
  const ui::Node* node() const;

 protected:
  /// The place of the element's row; without a list when the element is outside lists.
  RowPlace rowPlace() const { return row_ ? row_->place() : RowPlace{}; }

 private:
  QRect rectOf(ui::NodeID node) const;
  QString description() const;

  AccessibleRow* row_;
  std::uint64_t path_;
  mutable std::optional<std::size_t> reportedDescription_;  ///< hash of the one last reported
};

}  // namespace vemra::qt
