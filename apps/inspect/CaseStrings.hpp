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
/// A case may bring millions of strings, wrong ones at that; so they are only kept at first, and put
/// in order in one go.
class CaseStrings final : public ui::StringsTable {
 public:
  void add(std::string key, std::string translation);

  /// Two keys that are canonically equal.
  struct Repetition {
    std::string first;
    std::string second;
  };

  /// To be called when all strings are there: makes them ready to be looked up.
  /// - Returns: two keys of which there may be one only, if there are such.
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
