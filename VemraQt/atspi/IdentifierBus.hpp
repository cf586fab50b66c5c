#pragma once

#include <QAccessible>
#include <QList>
#include <QString>

/// \file
/// The exact identifier of every element, for assistive technology and automation over AT-SPI.
///
/// Needed as long as one of the answers in `IdentifierAnswers` is, or `ChildSignals`.

namespace vemra::qt::atspi {

/// What knows the identifiers of a tree of accessible elements.
///
/// A tree of elements registers one while it is on the screen. Main thread only.
class IdentifierSource {
 public:
  /// The identifier of an element of this tree, byte for byte; "" when it has none; a null string
  /// when the id is not of this tree.
  virtual QString identifier(QAccessible::Id element) const = 0;
  /// The elements with that identifier in tree order, at most `most` (0: all). Does not walk the
  /// accessibility tree: what it costs is the source's own look-up.
  virtual QList<QAccessible::Id> find(const QString& identifier, int most) = 0;
  /// Scrolls the element into view; false when it is not of this tree, or gone.
  virtual bool scrollIn(QAccessible::Id element) = 0;

 protected:
  ~IdentifierSource() = default;
};

/// Publishes identifiers on the accessibility bus.
///
/// Before Qt 6.9 an accessible element has no exact identifier on the bus (none at all before 6.5,
/// a chain of object names up to 6.8); from 6.9 on one without an identifier has that chain still.
/// This object stands in front of Qt's own on the accessibility bus, with public interfaces only,
/// and forwards all but six questions: the property `AccessibleId`, the attribute `id`, the list of
/// interfaces (`Collection` comes in), `Collection.GetMatches` for a rule on the attribute `id`,
/// the states (what is outside the viewport is visible and not showing), and what is chosen in a
/// picker (`Selection`, which Qt has from 6.5 on). If anything on the bus is not as expected, Qt's
/// own stays in place.
///
/// The bus appears some time after the program starts, so installing is tried again whenever
/// accessibility becomes active. Call from the main thread after QApplication is made; more calls
/// do nothing.
void publishIdentifiers();
/// Whether the object that publishes them is on the bus now.
bool areIdentifiersPublished();

/// Adds or removes a tree whose identifiers are published.
void addIdentifierSource(IdentifierSource& source);
void removeIdentifierSource(IdentifierSource& source);

}  // namespace vemra::qt::atspi
