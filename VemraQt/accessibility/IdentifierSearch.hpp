#pragma once

#include "VemraPlatform/ui/NodeID.hpp"
#include "VemraQt/accessibility/RowIdentifiers.hpp"
#include "VemraQt/atspi/IdentifierBus.hpp"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include <QAccessible>

namespace vemra::qt {

class AccessibleTree;

/// The identifiers of a tree, and what is found by them; on the accessibility bus while it lives.
///
/// Rows are many and describing one costs. An identifier inside a row is made with the row's id in
/// it, as a rule, so the rows whose id it holds are looked at; only when the rule finds nothing are
/// all of them, and then it is noted what is where: asking again costs next to nothing.
class IdentifierSearch final : public atspi::IdentifierSource {
 public:
  explicit IdentifierSearch(AccessibleTree& tree);
  ~IdentifierSearch();
  IdentifierSearch(const IdentifierSearch&) = delete;
  IdentifierSearch& operator=(const IdentifierSearch&) = delete;

  QString identifier(QAccessible::Id element) const override;
  QList<QAccessible::Id> find(const QString& identifier, int most) override;
  bool scrollIn(QAccessible::Id element) override;

 private:
  /// In which rows an identifier is looked for.
  enum class Search { rowsNamedInIt, everyRow };

  QList<QAccessible::Id> findIn(Search search, const std::string& identifier, int most);
  std::vector<std::size_t> rowsToSearch(ui::NodeID list, const std::string& identifier,
                                        Search search);
  std::vector<std::size_t> rowsWithState(ui::NodeID list);
  const RowIdentifiers* notedIdentifiers(ui::NodeID list) const;
  void noteIdentifiers(ui::NodeID list);
  void findInRow(ui::NodeID list, std::size_t index, const std::string& identifier,
                 QList<QAccessible::Id>& found);

  AccessibleTree& tree_;
  std::unordered_map<ui::NodeID, RowIdentifiers> noted_;  ///< of lists searched row by row
};

}  // namespace vemra::qt
