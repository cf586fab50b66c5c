#pragma once

#include <string>

namespace vemra::desk {

/// An id for an outcome that is about to be recorded: 128 random bits, so that no two are the same.
///
/// It is chosen before the first try to record the outcome and stays with it. A try may fail after
/// the outcome is in the store, for instance when the store moves in that moment; the next try
/// finds the record by its id and does not record the outcome a second time.
std::string newOutcomeID();

}  // namespace vemra::desk
