#pragma once

#include "VemraQt/accessibility/AccessibleObject.hpp"
#include "VemraQt/accessibility/ElementSlot.hpp"
#include "VemraQt/accessibility/ObjectActions.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vemra::qt {

/// A row of a list: a list item, named by the first text or title in it.
class AccessibleRow final : public AccessibleObject {
 public:
  AccessibleRow(ObjectHost& tree, ui::NodeID itsList, std::size_t itsIndex, std::string itsID)
      : AccessibleObject(tree), list(itsList), index(itsIndex), rowID(std::move(itsID)) {}

  QAccessibleInterface* parent() const override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* object) const override;
  QString textOf(QAccessible::Text kind) const override;
  /// The name now, without noting it as reported to clients.
  QString shownName() const;
  /// Whether the row's name differs from the one last reported to clients. Stores the new name,
  /// because the caller announces it next. False when no client has asked for the name.
  bool updateReportedName();
  /// Estimated when the row has no frame now.
  QRect rect() const override;
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QAccessible::State state() const override;
  QString identifier() const override;
  /// The row's place in its list, counted from 1, and the number of rows.
  QMap<QString, QString> objectAttributes() const override;
  void scrollIn() override;

  RowPlace place() const { return {list, index}; }

  const ui::NodeID list;
  std::size_t index;
  const std::string rowID;
  std::vector<ElementSlot> known;
  ui::NodeID knownNode;       ///< the row's node when `known` was made
  std::uint64_t knownAt = 0;  ///< the graph's count of described bodies and rows at that time

 private:
  mutable std::optional<std::size_t> reportedName_;  ///< hash of the name last reported
};

}  // namespace vemra::qt
