#pragma once

#include "VemraPlatform/Export.hpp"

#include <QAccessible>

/// \file
/// `children-changed` with the right indexes. Measured with Qt 6.4.2; no version of Qt is known that
/// makes it unnecessary.

namespace vemra::qt::atspi {

/// A child that came or went.
struct ChildChange {
  enum class Kind {
    removed,
    added,
    unlisted  ///< many came, went or changed places: a client asks for all of them again
  };
  Kind kind = Kind::unlisted;
  QAccessible::Id parent = 0;  ///< none: the page
  std::size_t index = 0;       ///< among its siblings: of a removed one right before it went
  QAccessible::Id child =
      0;  ///< none: nobody has ever asked for it; of `unlisted`: any that is there
};

/// Whether changes of children are sent here; if not, Qt sends what it can.
///
/// Qt 6.4 tells of a child that goes only those who listen to changes of states as well, and with no
/// index; and of one that comes with the number of children as its index.
VEMRA_EXPORT bool sendsChildSignals();

/// Sends `children-changed` on the accessibility bus.
///
/// A child that nobody knows is a reference to nothing. Of an `unlisted` change there are a `remove`
/// of nothing and an `add` of a child that is there, both with the index -1: clients' libraries let
/// go of the children they have kept when an `add` has no index, but only if it names one.
VEMRA_EXPORT void sendChildSignal(QAccessible::Id parent, const ChildChange& change);

}  // namespace vemra::qt::atspi
