#pragma once

#include "VemraPlatform/ui/NodeID.hpp"
#include "VemraQt/accessibility/RowSearch.hpp"
#include "VemraQt/atspi/IdentifierSource.hpp"

#include <cstddef>
#include <string>

#include <QAccessible>

namespace vemra::qt {

class AccessibleTree;

/// Finds the elements of a tree by identifier; answers on the accessibility bus while it lives.
class IdentifierSearch final : public atspi::IdentifierSource {
 public:
  explicit IdentifierSearch(AccessibleTree& tree);
  ~IdentifierSearch();
  IdentifierSearch(const IdentifierSearch&) = delete;
  IdentifierSearch& operator=(const IdentifierSearch&) = delete;

  QString identifier(QAccessible::Id element) const override;
  QMap<QString, QString> attributes(QAccessible::Id element) const override;
  bool isLandmark(QAccessible::Id element) const override;
  QList<QAccessible::Id> find(const QString& identifier) override;
  bool findByRole(const QAccessibleInterface& page, const atspi::RoleTest& isSought,
                  const atspi::FoundObject& take) override;
  bool scrollIn(QAccessible::Id element) override;
  /// For a search that makes no accessible objects.
  RowSearch& rows() { return rows_; }

 private:
  QList<QAccessible::Id> findIn(RowSearch::Rows rows, const std::string& identifier);
  void findInRow(ui::NodeID list, std::size_t index, const std::string& identifier,
                 QList<QAccessible::Id>& found);

  AccessibleTree& tree_;
  RowSearch rows_;
};

}  // namespace vemra::qt
