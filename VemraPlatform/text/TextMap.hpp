#pragma once

#include "VemraPlatform/text/Equality.hpp"

#include <unordered_map>

namespace vemra::text {

/// A hash table whose keys are texts; `Key` is `std::string` or `std::string_view`.
///
/// Canonically equivalent texts are one key. The hash has a key of its own in each process: with
/// `std::hash`, which has none, a document could bring thousands of texts with one hash value, and
/// a table of them would take the square of their number.
template <class Key, class Value>
using TextMap = std::unordered_map<Key, Value, Hash, Equal>;

}  // namespace vemra::text
