#pragma once

#include "VemraPlatform/Export.hpp"

#include <QAccessible>

/// \file
/// Sends `children-changed` with the right indexes. Measured with Qt 6.4.2; no version of Qt is
/// known that makes this unnecessary.

namespace vemra::qt::atspi {

/// A child that was added or removed.
struct ChildChange {
  enum class Kind {
    removed,
    added,
    unlisted  ///< many changed: clients must read all children again
  };
  Kind kind = Kind::unlisted;
  QAccessible::Id parent = 0;  ///< none: the page
  std::size_t index = 0;       ///< among its siblings; of a removed child: before the removal
  QAccessible::Id child =
      0;  ///< none: no client has asked for it; for `unlisted`: any existing child
};

/// Whether this library sends `children-changed` itself; if not, Qt sends what it can.
///
/// Qt 6.4 reports a removed child only to clients that also listen to state changes, and without an
/// index. It reports an added child with the number of children as its index.
VEMRA_EXPORT bool sendsChildSignals();

/// Sends `children-changed` on the accessibility bus.
///
/// A child that no client has asked for is sent as a reference to no object. An `unlisted` change
/// is sent as a `remove` of no object and an `add` of an existing child, both with the index -1:
/// the libraries of clients drop their cached children when an `add` has no index, but only if it
/// names a child.
VEMRA_EXPORT void sendChildSignal(QAccessible::Id parent, const ChildChange& change);

}  // namespace vemra::qt::atspi
