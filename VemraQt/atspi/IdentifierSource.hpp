#pragma once

#include "VemraPlatform/Export.hpp"

#include <functional>
#include <vector>

#include <QAccessible>
#include <QList>
#include <QMap>
#include <QString>

namespace vemra::qt::atspi {

/// Whether a search looks for objects of that role.
using RoleTest = std::function<bool(QAccessible::Role)>;
/// Receives an object that a search has found; false ends the search.
using FoundObject = std::function<bool(QAccessible::Id)>;

/// Knows the identifiers of one tree of accessible elements.
///
/// Each tree registers one while it is on the screen. Main thread only.
class IdentifierSource {
 public:
  /// The identifier of an element of this tree, byte for byte; "" when it has none; a null string
  /// when the id is not of this tree.
  virtual QString identifier(QAccessible::Id element) const = 0;
  /// The other attributes of an element of this tree: the level of a heading, the position of a
  /// row. Empty when the id is not of this tree.
  virtual QMap<QString, QString> attributes(QAccessible::Id element) const = 0;
  /// Whether an element is a section of this tree's page.
  virtual bool isLandmark(QAccessible::Id element) const = 0;
  /// Finds the elements with that identifier, in tree order. Does not walk the accessibility tree:
  /// it costs only the source's own look-up.
  virtual QList<QAccessible::Id> find(const QString& identifier) = 0;
  /// Passes the elements of this tree with a sought role to `take`, in tree order and each as soon
  /// as it is found, if `page` is the object of this tree's page; returns whether it is.
  virtual bool findByRole(const QAccessibleInterface& page, const RoleTest& isSought,
                          const FoundObject& take) = 0;
  /// Scrolls the element into view; false when the element is not in this tree, or gone.
  virtual bool scrollIn(QAccessible::Id element) = 0;

 protected:
  ~IdentifierSource() = default;
};

/// Adds or removes a tree whose identifiers are published.
VEMRA_EXPORT void addIdentifierSource(IdentifierSource& source);
VEMRA_EXPORT void removeIdentifierSource(IdentifierSource& source);

/// The registered trees, which know the identifiers of their elements.
std::vector<IdentifierSource*>& identifierSources();

}  // namespace vemra::qt::atspi
