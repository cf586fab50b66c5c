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
  /// nullptr when nobody has asked for that row.
  AccessibleRow* at(std::size_t index) const;
  std::vector<AccessibleRow*> all() const;
  void add(AccessibleRow& row);

  /// The rows that the places are of; none before the first `follow`.
  const std::shared_ptr<const ui::RowIDs>& source() const { return source_; }
  /// The list has these rows now. Rows that are known follow their ids to other places; those whose
  /// id is gone, or cannot be read, leave.
  ChildSteps follow(const std::shared_ptr<const ui::RowIDs>& source, PageErrors& errors,
                    LeavingObjects& leaving);
  /// The list has gone, with all its rows.
  ChildSteps leave(PageErrors& errors, LeavingObjects& leaving);
  /// Some of the rows that may be others than clients have heard, at most so many; each once after
  /// every `follow`.
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
