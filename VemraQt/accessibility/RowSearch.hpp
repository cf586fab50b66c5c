#pragma once

#include "VemraPlatform/ui/NodeID.hpp"
#include "VemraQt/accessibility/ObjectActions.hpp"
#include "VemraQt/accessibility/RowIdentifiers.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace vemra::qt {

class Page;

/// An element of a page, with or without nodes for its row.
struct FoundElement {
  RowPlace row;
  ui::NodeID node;
};

/// Finds the rows that hold an identifier. Main thread only.
///
/// There are many rows, and describing one is expensive. An identifier inside a row usually
/// contains the row's id, so a search first describes only the rows whose id the identifier
/// contains. If that finds nothing, it describes the rows of each list that does not promise such
/// identifiers (`ui::IdentifiersInRows::containRowID`), once, and notes where each identifier is;
/// later searches cost next to nothing.
class RowSearch {
 public:
  /// The rows in which to search for an identifier.
  enum class Rows { namedInIt, every };

  explicit RowSearch(Page& page) : page_(page) {}

  /// The rows of a list that may hold the identifier, ascending; none when the list is gone.
  std::vector<std::size_t> rows(ui::NodeID list, const std::string& identifier, Rows rows);

  /// The first element of the page with the identifier, in tree order; nil when there is none. Of
  /// several, one outside lists, or in a row whose id the identifier contains, comes before those
  /// in other rows. While an event is being handled, only rows with nodes are searched.
  std::optional<FoundElement> first(const std::string& identifier);

  /// Drops the notes of lists whose rows have changed.
  void dropOutdated();

 private:
  std::optional<FoundElement> firstIn(Rows rows, const std::string& identifier);
  bool has(ui::NodeID node, const std::string& identifier) const;
  std::vector<std::size_t> rowsWithState(ui::NodeID list);
  const RowIdentifiers* notedIdentifiers(ui::NodeID list) const;
  void noteIdentifiers(ui::NodeID list);

  Page& page_;
  std::unordered_map<ui::NodeID, RowIdentifiers> noted_;  ///< for lists searched row by row
};

}  // namespace vemra::qt
