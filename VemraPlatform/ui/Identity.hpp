#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Element.hpp"
#include "VemraPlatform/ui/RowIDs.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vemra::ui {

/// Decides whether a node stays the same node in the next description of its parent.
///
/// A child is the same if and only if its kind (for a composite: its type), its branch and its
/// place are equal. The place is the slot among the parent's children, counting absent ones, or the
/// view's own key; equal keys are distinguished by their order:
///
///     before              after                  same?
///     slot 1: Button      slot 1: Button         yes, also with another title or action
///     slot 1: Button      slot 1: absent         no: the button is removed; slot 2 stays slot 2
///     slot 1: Button      slot 1: Text           no: another kind
///     then-branch VStack  else-branch VStack     no: another branch
///     key "a", slot 0     key "a", slot 5        yes: a key replaces the slot
///     row "é" (1 scalar)  row "é" (2 scalars)    yes: keys are compared canonically
struct Identity {
  const void* type = nullptr;  ///< unique for each kind, and for each type of composite
  std::uint64_t branch = 0;    ///< `Description::branch`
  std::size_t slot = 0;        ///< ignored with a key
  bool keyed = false;          ///< whether a key replaces the slot
  std::string key;             ///< `Description::key`, or the id of a row
  std::size_t occurrence = 0;  ///< the number of equal keys before it among the siblings

  friend VEMRA_EXPORT bool operator==(const Identity& a, const Identity& b);
};

/// A hash that is consistent with the equality of identities.
struct VEMRA_EXPORT IdentityHash {
  /// Equal identities have equal hashes.
  std::size_t operator()(const Identity& identity) const;
};

/// Whether kind, composite type and branch are equal. A row stays the same node when this and its
/// id agree.
VEMRA_EXPORT bool sameKind(const Identity& a, const Identity& b);

/// The identity of a present view in the given slot; a keyed one has the occurrence 0.
VEMRA_EXPORT Identity identityOf(const View& view, std::size_t slot);

/// The identity of a row: its key and the number of equal keys before it.
struct RowIdentity {
  std::string_view key;        ///< the id; compared under canonical equivalence
  std::size_t occurrence = 0;  ///< the number of rows before it with an equal id
};

/// The identities of the rows at `indexes` (ascending), in one pass over the ids up to the last.
VEMRA_EXPORT std::vector<RowIdentity> rowIdentities(const RowIDs& rows,
                                                    const std::vector<std::size_t>& indexes);

/// Used instead of an index for a row that is not in the list.
inline constexpr std::size_t absentRow = static_cast<std::size_t>(-1);

/// The indexes of those rows in `rows`, or `absentRow`: one pass over the ids, which ends when all
/// rows are found.
VEMRA_EXPORT std::vector<std::size_t> locateRows(const RowIDs& rows,
                                                 const std::vector<RowIdentity>& identities);

}  // namespace vemra::ui
