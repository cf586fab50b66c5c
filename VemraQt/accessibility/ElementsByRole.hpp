#pragma once

#include "VemraQt/atspi/IdentifierSource.hpp"

namespace vemra::qt {

class AccessibleTree;

/// Passes the elements, rows and choices of a page with a sought role to `take`, in tree order, in
/// rows with nodes or without, until `take` ends the search. Describes every row up to there, if
/// elements in rows are sought, and makes objects only for those that it finds. None while the page
/// is hidden. Main thread only.
void findElementsByRole(AccessibleTree& tree, const atspi::RoleTest& isSought,
                        const atspi::FoundObject& take);

}  // namespace vemra::qt
