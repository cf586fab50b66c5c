#pragma once

#include "VemraPlatform/ui/Environment.hpp"
#include "VemraPlatform/ui/RowIDs.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace vemra::qt {

/// An index from identifiers to the rows of a list, built once: without it, each search for an
/// identifier that no row holds would describe every row.
///
/// It stores a hash and a row number for each identifier, eight bytes; so it may also name rows
/// that do not hold the identifier.
class RowIdentifiers {
 public:
  /// \param uncertain The rows whose state may make them differ from what their source describes:
  /// every search names them.
  RowIdentifiers(const std::shared_ptr<const ui::RowIDs>& source, ui::Environment environment,
                 std::vector<std::size_t> uncertain)
      : source_(source), environment_(std::move(environment)), uncertain_(std::move(uncertain)) {}

  /// Whether the index was built for these rows in this environment.
  bool areOf(const std::shared_ptr<const ui::RowIDs>& source,
             const ui::Environment& environment) const {
    return source_.lock() == source && environment_ == environment;
  }

  void note(std::string_view identifier, std::size_t row);
  /// Call it after the last `note` and before the first `rowsWith`.
  void finish();

  /// The rows that may hold the identifier, in no particular order, possibly with repetitions.
  std::vector<std::size_t> rowsWith(std::string_view identifier) const;

 private:
  struct Note {
    std::uint32_t hash = 0;
    std::uint32_t row = 0;
    friend auto operator<=>(const Note&, const Note&) = default;
  };

  std::weak_ptr<const ui::RowIDs> source_;  ///< weak: an index does not keep rows alive
  ui::Environment environment_;
  std::vector<std::size_t> uncertain_;
  std::vector<Note> notes_;  // sorted by `finish`
};

}  // namespace vemra::qt
