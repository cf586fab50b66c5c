#pragma once

#include "VemraPlatform/Export.hpp"

#include <memory>
#include <string_view>

namespace vemra::text {

/// A text to find in other texts, by ICU's string search with the root collation at primary
/// strength: canonically equal texts are equal, and neither case nor accents count (UTS #10,
/// section 8). Bytes that are not UTF-8 count as U+FFFD.
///
/// Making one costs some microseconds, and a search about a tenth of one for each character. Use an
/// object on one thread at a time.
class VEMRA_EXPORT TextSearch {
 public:
  /// Prepares the search for `sought`, in UTF-8.
  explicit TextSearch(std::string_view sought);
  ~TextSearch();
  /// Takes over the search; the other object may only be destroyed or assigned to.
  TextSearch(TextSearch&&) noexcept;
  TextSearch& operator=(TextSearch&&) noexcept;

  /// Whether nothing in the text counts, as in "" or an accent alone. No text contains it.
  bool isEmpty() const { return parts_ == nullptr; }
  /// Whether the text occurs in `text`.
  bool isIn(std::string_view text) const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace vemra::text
