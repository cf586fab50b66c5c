#pragma once

#include "VemraQt/accessibility/AccessibleObject.hpp"

#include <cstdint>

namespace vemra::qt {

/// A list of the page. Its children are its rows, with nodes or without.
class AccessibleList final : public AccessibleObject {
 public:
  AccessibleList(ObjectHost& tree, std::uint64_t path, ui::NodeID node)
      : AccessibleObject(tree), list(node), path_(path) {}

  QAccessibleInterface* parent() const override { return tree().sectionAround(path_); }
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* object) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessible::Role role() const override { return QAccessible::List; }
  QString textOf(QAccessible::Text) const override { return {}; }
  QRect rect() const override;
  QAccessible::State state() const override;
  QString identifier() const override;
  void scrollIn() override;

  const ui::NodeID list;

 private:
  std::uint64_t path_;
};

}  // namespace vemra::qt
