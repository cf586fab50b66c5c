#pragma once

#include "VemraPlatform/ui/Environment.hpp"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vemra::inspect {

/// The strings table of a case: its keys match under canonical equality, as the platform's do.
///
/// A case may contain millions of strings. So `add` only stores a string, and `putInOrder` sorts
/// all of them at once.
class CaseStrings final : public ui::StringsTable {
 public:
  void add(std::string key, std::string translation);

  /// Two keys that are canonically equal.
  struct Repetition {
    std::string first;
    std::string second;
  };

  /// Call it after the last `add` and before the first `lookup`.
  /// - Returns: two keys that are canonically equal, which is an error in the case; nil without
  ///   such.
  std::optional<Repetition> putInOrder();

  std::optional<std::string> lookup(std::string_view key) const override;

 private:
  struct Entry {
    std::string key;
    std::string translation;
  };

  std::deque<Entry> entries_;
  std::vector<std::pair<std::size_t, std::size_t>> order_;  // hash and place, ascending
};

}  // namespace vemra::inspect
