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

/// In which rows of a list an identifier stands, noted down once: describing every row again only
/// to say that an identifier is in none of them would cost too much.
///
/// Eight bytes an identifier: a hash and the row. So a row may be named that does not hold it.
class RowIdentifiers {
 public:
  /// \param uncertain The rows that are different now from what their source alone makes of them,
  /// and may become so again: they are named for every identifier.
  RowIdentifiers(const std::shared_ptr<const ui::RowIDs>& source, ui::Environment environment,
                 std::vector<std::size_t> uncertain)
      : source_(source), environment_(std::move(environment)), uncertain_(std::move(uncertain)) {}

  /// Whether what is noted here is true of these rows in this environment.
  bool areOf(const std::shared_ptr<const ui::RowIDs>& source,
             const ui::Environment& environment) const {
    return source_.lock() == source && environment_ == environment;
  }

  void note(std::string_view identifier, std::size_t row);
  /// To be called when all is noted, before anything is asked.
  void finish();

  /// The rows that may hold the identifier, in no particular order; one may stand there twice.
  std::vector<std::size_t> rowsWith(std::string_view identifier) const;

 private:
  struct Note {
    std::uint32_t hash = 0;
    std::uint32_t row = 0;
    friend auto operator<=>(const Note&, const Note&) = default;
  };

  std::weak_ptr<const ui::RowIDs> source_;  ///< not kept alive for its notes
  ui::Environment environment_;
  std::vector<std::size_t> uncertain_;
  std::vector<Note> notes_;  // ascending, once all is noted
};

}  // namespace vemra::qt
