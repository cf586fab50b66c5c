#pragma once

#include "VemraQt/accessibility/AccessibleObject.hpp"

#include <cstdint>
#include <optional>

namespace vemra::qt {

/// A section of the page: a group with the name of its heading. Its children are the elements,
/// lists and sections inside.
class AccessibleSection final : public AccessibleObject {
 public:
  AccessibleSection(ObjectHost& tree, std::uint64_t path) : AccessibleObject(tree), path_(path) {}

  QAccessibleInterface* parent() const override { return tree().sectionAround(path_); }
  int childCount() const override { return tree().childCountOf(path_); }
  QAccessibleInterface* child(int index) const override { return tree().childOf(path_, index); }
  int indexOfChild(const QAccessibleInterface* object) const override {
    return tree().indexIn(path_, object);
  }
  QAccessible::Role role() const override { return QAccessible::Grouping; }
  QString textOf(QAccessible::Text kind) const override;
  /// The name now, without noting it as reported to clients.
  QString shownName() const;
  QRect rect() const override;
  QAccessible::State state() const override;
  QString identifier() const override;
  void scrollIn() override;
  /// Whether the name differs from the one last reported to clients. Stores the new name, because
  /// the caller announces it next. False when no client has asked for the name.
  bool updateReportedName();

 private:
  std::uint64_t path_;
  mutable std::optional<std::size_t> reportedName_;  ///< hash of the name last reported
};

}  // namespace vemra::qt
