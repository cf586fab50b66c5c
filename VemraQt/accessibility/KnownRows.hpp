#pragma once

#include "VemraPlatform/ui/RowIDs.hpp"
#include "VemraQt/accessibility/ChildSteps.hpp"

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

#include <QAccessible>

namespace vemra::qt {

class AccessibleRow;
class PageErrors;

/// The rows of one list that have objects, because a client has asked for them.
class KnownRows {
 public:
  /// The object of a row; nullptr when no client has asked for it.
  AccessibleRow* at(std::size_t index) const;
  std::vector<AccessibleRow*> all() const;
  void add(AccessibleRow& row);

  /// The rows that the known indexes refer to; nullptr before the first `follow`.
  const std::shared_ptr<const ui::RowIDs>& source() const { return source_; }
  /// Updates the known rows to a new list of rows: known rows move to the new indexes of their ids;
  /// rows whose id is gone, or cannot be read, leave.
  ChildSteps follow(const std::shared_ptr<const ui::RowIDs>& source, PageErrors& errors,
                    LeavingObjects& leaving);
  /// Removes all rows, because the list has gone.
  void leave(LeavingObjects& leaving);
  /// Adds known rows that have not been compared since their list changed to `rows`, until it has
  /// `most` entries; each row once after every `follow`.
  void takeUncompared(std::vector<QAccessible::Id>& rows, std::size_t most);
  bool hasUncompared() const { return !uncompared_.empty(); }

 private:
  ChildSteps move(const std::shared_ptr<const ui::RowIDs>& source, LeavingObjects& leaving);
  QAccessible::Id idAt(std::size_t index) const;

  std::shared_ptr<const ui::RowIDs> source_;
  std::unordered_map<std::size_t, AccessibleRow*> rows_;
  std::vector<QAccessible::Id> uncompared_;
};

}  // namespace vemra::qt
