#include "VemraQt/accessibility/RowIdentifiers.hpp"

#include "VemraPlatform/text/KeyedHash.hpp"

#include <algorithm>

namespace vemra::qt {

namespace {

std::uint32_t hashOf(std::string_view identifier) {
  return static_cast<std::uint32_t>(text::hashOfBytes(identifier));
}

}  // namespace

void RowIdentifiers::note(std::string_view identifier, std::size_t row) {
  notes_.push_back({hashOf(identifier), static_cast<std::uint32_t>(row)});
}

void RowIdentifiers::finish() {
  std::ranges::sort(notes_);
  notes_.shrink_to_fit();
}

std::vector<std::size_t> RowIdentifiers::rowsWith(std::string_view identifier) const {
  std::vector<std::size_t> rows = uncertain_;
  for (const Note& note : std::ranges::equal_range(notes_, hashOf(identifier), {}, &Note::hash)) {
    rows.push_back(note.row);
  }
  return rows;
}

}  // namespace vemra::qt
