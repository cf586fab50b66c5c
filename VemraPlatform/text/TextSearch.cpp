#include "VemraPlatform/text/TextSearch.hpp"

#include <cstdint>
#include <utility>

#include <unicode/ucol.h>
#include <unicode/unistr.h>
#include <unicode/usearch.h>

namespace vemra::text {
namespace {

struct Close {
  void operator()(UCollator* collator) const { ucol_close(collator); }
  void operator()(UStringSearch* search) const { usearch_close(search); }
};

icu::UnicodeString inUTF16(std::string_view text) {
  return icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
}

}  // namespace

struct TextSearch::Parts {
  icu::UnicodeString sought;
  std::unique_ptr<UCollator, Close> collator;
  std::unique_ptr<UStringSearch, Close> search;
};

TextSearch::TextSearch(std::string_view sought) {
  auto parts = std::make_unique<Parts>();
  parts->sought = inUTF16(sought);
  const UChar* const units = parts->sought.getBuffer();
  const std::int32_t count = parts->sought.length();
  UErrorCode error = U_ZERO_ERROR;
  parts->collator.reset(ucol_open("", &error));
  if (U_FAILURE(error)) return;
  ucol_setStrength(parts->collator.get(), UCOL_PRIMARY);
  ucol_setAttribute(parts->collator.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &error);
  // The key of a text in which nothing counts is only its terminator.
  if (ucol_getSortKey(parts->collator.get(), units, count, nullptr, 0) <= 1) return;
  parts->search.reset(
      usearch_openFromCollator(units, count, units, count, parts->collator.get(), nullptr, &error));
  if (U_SUCCESS(error)) parts_ = std::move(parts);
}

TextSearch::~TextSearch() = default;
TextSearch::TextSearch(TextSearch&&) noexcept = default;
TextSearch& TextSearch::operator=(TextSearch&&) noexcept = default;

bool TextSearch::isIn(std::string_view text) const {
  const icu::UnicodeString searched = inUTF16(text);
  if (!parts_ || searched.isEmpty()) return false;
  UStringSearch* const search = parts_->search.get();
  UErrorCode error = U_ZERO_ERROR;
  usearch_setText(search, searched.getBuffer(), searched.length(), &error);
  const bool found = usearch_first(search, &error) != USEARCH_DONE;
  UErrorCode ignored = U_ZERO_ERROR;  // the search keeps a pointer, and `searched` ends here
  usearch_setText(search, parts_->sought.getBuffer(), parts_->sought.length(), &ignored);
  return U_SUCCESS(error) && found;
}

}  // namespace vemra::text
