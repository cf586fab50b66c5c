#include "apps/desk/store/SameText.hpp"

#include "VemraPlatform/text/Equality.hpp"

#include <cstddef>
#include <exception>
#include <new>
#include <string_view>

#include <sqlite3.h>

namespace vemra::desk {
namespace {

/// SQLite calls this from C, so it must not throw: a failure becomes the statement's error.
void sameText(sqlite3_context* context, int, sqlite3_value** values) noexcept {
  const auto isNil = [&](int i) { return sqlite3_value_type(values[i]) == SQLITE_NULL; };
  const auto view = [&](int i) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(values[i]));
    if (bytes == nullptr) throw std::bad_alloc();
    return std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(values[i])));
  };
  try {
    const bool same = !isNil(0) && !isNil(1) && text::equal(view(0), view(1));
    sqlite3_result_int(context, same ? 1 : 0);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& error) {
    sqlite3_result_error(context, error.what(), -1);
  } catch (...) {
    sqlite3_result_error(context, "two texts could not be compared", -1);
  }
}

}  // namespace

void addSameText(sqlite3* connection) {
  sqlite3_create_function_v2(connection, "same_text", 2,
                             SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY, nullptr,
                             sameText, nullptr, nullptr, nullptr);
}

}  // namespace vemra::desk
