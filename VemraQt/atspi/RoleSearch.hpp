#pragma once

#include <optional>

#include <QAccessible>
#include <QList>

/// \file
/// Finds objects by role on the accessibility bus, as a screen reader does that lists headings or
/// buttons. Qt has no `Collection` interface.

namespace vemra::qt::atspi {

struct MatchRule;

/// The bits of AtspiStateType for a state; Qt reports every element outside the viewport as
/// invisible instead.
quint64 stateBits(const QAccessible::State& state);

/// The objects below `top` that have one of the rule's roles, agree with its states and have
/// its attributes, in tree order. A page answers for its rows, drawn or not. Nil when the rule looks for anything else, or
/// for a role that no page has.
///
/// - Parameter most: the largest number of objects; 0 for all. The search ends with the last of
///   them, and makes no further objects.
std::optional<QList<QAccessible::Id>> findByRole(QAccessibleInterface& top, const MatchRule& rule,
                                                 int most);

}  // namespace vemra::qt::atspi
