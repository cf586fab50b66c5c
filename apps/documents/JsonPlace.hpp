#pragma once

#include "apps/documents/DocumentError.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vemra::documents {

/// Where the reading of a document stands: the file's name and the way from its root.
///
/// Knows how an error at that place is said.
class JsonPlace {
 public:
  explicit JsonPlace(std::string file);

  /// Steps into the value of a key, which must stay alive until `leave`, or into an element.
  void enterKey(std::string_view key);
  void enterElement(std::size_t index);
  void leave();

  /// The JSON pointer of the place (RFC 6901).
  std::string pointer() const;

  /// Throws "expected …; found …" at this place.
  [[noreturn]] void fail(std::string_view expected, std::string_view found) const;

  /// The same at a key of the object at this place.
  [[noreturn]] void failAt(std::string_view key, std::string_view expected,
                           std::string_view found) const;

  /// The same with line and column, both from 1, for what is no JSON at all.
  [[noreturn]] void failSyntax(std::size_t line, std::size_t column, std::string_view expected,
                               std::string_view found) const;

 private:
  /// A key, or an index where `key` has no text behind it.
  struct Step {
    std::string_view key;
    std::size_t index = 0;
  };

  std::string file_;
  std::vector<Step> steps_;
};

}  // namespace vemra::documents
