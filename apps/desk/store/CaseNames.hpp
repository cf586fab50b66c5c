#pragma once

#include "apps/desk/store/Database.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/documents/EnumerationNames.hpp"

#include <span>
#include <string_view>

namespace vemra::desk {

/// The case of that name. The tables allow no other names, so another one means damage.
template <class Enumeration>
Enumeration readCase(const Database& database, std::string_view name,
                     std::span<const std::string_view> names) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (names[i] == name) return static_cast<Enumeration>(i);
  }
  throw StoreError(database.file(), "is damaged: it holds a case that there is not");
}

}  // namespace vemra::desk
