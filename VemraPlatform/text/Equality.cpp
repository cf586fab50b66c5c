#include "VemraPlatform/text/Equality.hpp"

#include "VemraPlatform/text/Decomposition.hpp"
#include "VemraPlatform/text/KeyedHash.hpp"
#include "VemraPlatform/text/UTF8.hpp"

#include <algorithm>
#include <new>
#include <stdexcept>

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

namespace vemra::text {
namespace {

[[noreturn]] void stopFor(UErrorCode status) {
  if (status == U_MEMORY_ALLOCATION_ERROR) throw std::bad_alloc();
  throw std::runtime_error(std::string("Unicode normalisation failed: ") + u_errorName(status));
}

const icu::Normalizer2& decomposition() {
  static const icu::Normalizer2& instance = [&]() -> const icu::Normalizer2& {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* found = icu::Normalizer2::getNFDInstance(status);
    if (U_FAILURE(status)) stopFor(status);
    return *found;
  }();
  return instance;
}

}  // namespace

// ICU decomposes the characters; this function sorts the marks, because ICU's insertion sort takes
// half a minute for a hundred thousand marks on one letter, and a name may have that many.
std::u32string decomposed(std::string_view text) {
  const icu::Normalizer2& form = decomposition();
  // No character below U+0300 is a mark, and none below U+00C0 decomposes: that is most of a text.
  const auto combiningClass = [&](char32_t scalar) -> int {
    return scalar < 0x300 ? 0 : form.getCombiningClass(static_cast<UChar32>(scalar));
  };
  std::u32string scalars;
  scalars.reserve(text.size());
  std::size_t afterStarter = 0;
  const auto orderMarks = [&] {
    std::stable_sort(scalars.begin() + static_cast<std::ptrdiff_t>(afterStarter), scalars.end(),
                     [&](char32_t a, char32_t b) { return combiningClass(a) < combiningClass(b); });
  };
  const auto add = [&](char32_t scalar) {
    const bool isStarter = combiningClass(scalar) == 0;
    if (isStarter) orderMarks();
    scalars += scalar;
    if (isStarter) afterStarter = scalars.size();
  };

  icu::UnicodeString parts;
  while (!text.empty()) {
    const Step step = firstStep(text);
    text.remove_prefix(step.length);
    if (*step.scalar < 0xC0 || !form.getDecomposition(static_cast<UChar32>(*step.scalar), parts)) {
      add(*step.scalar);
      continue;
    }
    for (std::int32_t index = 0; index < parts.length(); index = parts.moveIndex32(index, 1)) {
      add(static_cast<char32_t>(parts.char32At(index)));
    }
  }
  orderMarks();
  return scalars;
}

namespace {

bool isASCIIByte(char byte) noexcept {
  return static_cast<unsigned char>(byte) < 0x80;
}

bool isTrail(char byte) noexcept {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The index of the first byte that differs; the length of the shorter text when none differs.
std::size_t firstDifference(std::string_view a, std::string_view b) noexcept {
  const std::size_t shorter = std::min(a.size(), b.size());
  std::size_t index = 0;
  for (; index + sizeof(std::uint64_t) <= shorter; index += sizeof(std::uint64_t)) {
    if (std::memcmp(a.data() + index, b.data() + index, sizeof(std::uint64_t)) != 0) break;
  }
  while (index < shorter && a[index] == b[index]) ++index;
  return index;
}

/// Rules 4 and 5, for two well-formed texts from their first difference on.
///
/// The equal beginnings do not matter: decomposing works on single code points, and ordering only
/// exchanges marks of different classes, so equal beginnings cancel out.
bool areEqualRests(std::string_view a, std::string_view b) {
  const auto startsInert = [](std::string_view text) {
    return decomposition().isInert(static_cast<UChar32>(*firstStep(text).scalar));
  };
  if (startsInert(a) && startsInert(b)) return false;
  return decomposed(a) == decomposed(b);
}

}  // namespace

bool equalBeyondAGlance(std::string_view a, std::string_view b) {
  std::size_t difference = firstDifference(a, b);
  if (difference == a.size() || difference == b.size()) return a.size() == b.size();
  if (isASCIIByte(a[difference]) && isASCIIByte(b[difference])) return false;
  const auto lasts = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend());
  if (lasts.first != a.rend() && lasts.second != b.rend() && isASCIIByte(*lasts.first) &&
      isASCIIByte(*lasts.second)) {
    return false;
  }

  if (!isWellFormed(a) || !isWellFormed(b)) return false;
  while (isTrail(a[difference])) --difference;
  return areEqualRests(a.substr(difference), b.substr(difference));
}

std::size_t hash(std::string_view text) {
  const KeyedHash ofBytes = sipHash<1, 3>(text, processHashKey());
  // ASCII text is its own decomposition, and ill-formed text equals nothing but its own bytes.
  if (ofBytes.isASCII || !isWellFormed(text)) return static_cast<std::size_t>(ofBytes.value);
  std::string form;
  form.reserve(text.size() + text.size() / 2);
  for (const char32_t scalar : decomposed(text)) append(form, scalar);
  return hashOfBytes(form);
}

}  // namespace vemra::text
