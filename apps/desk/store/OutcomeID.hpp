#pragma once

#include <string>

namespace vemra::desk {

/// Makes an id for a new outcome: 128 random bits, so that no two are the same.
///
/// Choose the id before the first try to record the outcome, and use it for every try. A try may
/// fail after the outcome has reached the store, for instance when the store moves at that moment;
/// the next try finds the record by its id and does not record the outcome a second time.
std::string newOutcomeID();

}  // namespace vemra::desk
