#pragma once

#include "apps/desk/store/Statement.hpp"
#include "apps/documents/EnumerationNames.hpp"

#include <span>
#include <string>
#include <string_view>

namespace vemra::desk {

/// Reads the case that a column names. The tables allow no other names, so any other name means
/// damage.
template <class Enumeration>
Enumeration readCase(Statement& row, int column, std::span<const std::string_view> names) {
  const std::string name = row.text(column);
  std::string expected = "one of";
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (names[i] == name) return static_cast<Enumeration>(i);
    expected.append(i == 0 ? " " : ", ").append(names[i]);
  }
  row.damaged(column, expected);
}

}  // namespace vemra::desk
