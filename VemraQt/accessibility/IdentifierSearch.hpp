#pragma once

#include "VemraPlatform/ui/NodeID.hpp"
#include "VemraQt/accessibility/RowIdentifiers.hpp"
#include "VemraQt/atspi/IdentifierSource.hpp"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include <QAccessible>

namespace vemra::qt {

class AccessibleTree;

/// Finds the elements of a tree by identifier; answers on the accessibility bus while it lives.
///
/// There are many rows, and describing one is expensive. An identifier inside a row usually
/// contains the row's id, so the search first describes only the rows whose id the identifier
/// contains. If that finds nothing, it describes all rows once and notes where each identifier is;
/// later searches cost next to nothing.
class IdentifierSearch final : public atspi::IdentifierSource {
 public:
  explicit IdentifierSearch(AccessibleTree& tree);
  ~IdentifierSearch();
  IdentifierSearch(const IdentifierSearch&) = delete;
  IdentifierSearch& operator=(const IdentifierSearch&) = delete;

  QString identifier(QAccessible::Id element) const override;
  QList<QAccessible::Id> find(const QString& identifier) override;
  bool scrollIn(QAccessible::Id element) override;

 private:
  /// The rows in which to search for an identifier.
  enum class Search { rowsNamedInIt, everyRow };

  QList<QAccessible::Id> findIn(Search search, const std::string& identifier);
  std::vector<std::size_t> rowsToSearch(ui::NodeID list, const std::string& identifier,
                                        Search search);
  std::vector<std::size_t> rowsWithState(ui::NodeID list);
  const RowIdentifiers* notedIdentifiers(ui::NodeID list) const;
  void noteIdentifiers(ui::NodeID list);
  void findInRow(ui::NodeID list, std::size_t index, const std::string& identifier,
                 QList<QAccessible::Id>& found);

  AccessibleTree& tree_;
  std::unordered_map<ui::NodeID, RowIdentifiers> noted_;  ///< for lists searched row by row
};

}  // namespace vemra::qt
