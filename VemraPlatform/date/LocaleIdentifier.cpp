#include "VemraPlatform/date/LocaleIdentifier.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <set>

#include <unicode/ucal.h>
#include <unicode/uenum.h>
#include <unicode/uloc.h>
#include <unicode/unumsys.h>

namespace vemra::date {
namespace {

using Enumeration =
    std::unique_ptr<UEnumeration, decltype([](UEnumeration* e) { uenum_close(e); })>;
using Names = std::set<std::string, std::less<>>;

// Never destroyed, because destructors that run at the end of the program may write dates.
const Names& namesFrom(UEnumeration* opened) {
  const Enumeration enumeration(opened);
  Names& names = *new Names;
  UErrorCode status = U_ZERO_ERROR;
  std::int32_t length = 0;
  while (const char* name = uenum_next(enumeration.get(), &length, &status)) {
    names.emplace(name, static_cast<std::size_t>(length));
  }
  return names;
}

const Names& listedLocales() {
  static const Names& names = []() -> const Names& {
    UErrorCode status = U_ZERO_ERROR;
    return namesFrom(uloc_openAvailableByType(ULOC_AVAILABLE_WITH_LEGACY_ALIASES, &status));
  }();
  return names;
}

bool isCalendar(const std::string& name) {
  static const Names& calendars = []() -> const Names& {
    UErrorCode status = U_ZERO_ERROR;
    return namesFrom(ucal_getKeywordValuesForLocale("calendar", "root", false, &status));
  }();
  return calendars.contains(name);
}

bool isNumberingSystem(const std::string& name) {
  constexpr std::array byLocale{"default", "native", "traditional", "finance"};
  if (std::find(byLocale.begin(), byLocale.end(), name) != byLocale.end()) return true;
  UErrorCode status = U_ZERO_ERROR;
  UNumberingSystem* system = unumsys_openByName(name.c_str(), &status);
  unumsys_close(system);
  return U_SUCCESS(status);
}

bool isLetterOrDigit(char character) noexcept {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9');
}

/// The base, with its BCP 47 extension if it has one, in ICU's spelling.
std::optional<std::string> icuBase(std::string_view base) {
  if (base == "root" || base == "und") return std::string();
  std::string name(base);
  std::replace(name.begin(), name.end(), '-', '_');
  if (listedLocales().contains(name)) return name;

  std::replace(name.begin(), name.end(), '_', '-');
  std::array<char, ULOC_FULLNAME_CAPACITY> identifier{};
  std::array<char, ULOC_FULLNAME_CAPACITY> bare{};
  std::int32_t parsed = 0;
  UErrorCode status = U_ZERO_ERROR;
  uloc_forLanguageTag(name.c_str(), identifier.data(), identifier.size(), &parsed, &status);
  uloc_getBaseName(identifier.data(), bare.data(), bare.size(), &status);
  const bool isWhole = parsed == static_cast<std::int32_t>(name.size());
  if (U_FAILURE(status) || status == U_STRING_NOT_TERMINATED_WARNING || !isWhole) return {};
  const bool isRoot = bare.front() == '\0' && name.starts_with("und-");
  if (!isRoot && !listedLocales().contains(std::string_view(bare.data()))) return {};
  return std::string(identifier.data());
}

/// Whether the text behind `@` has the form `key=value;key=value`.
bool areWellFormedKeywords(std::string_view keywords) {
  while (true) {
    const std::string_view pair = keywords.substr(0, keywords.find(';'));
    const std::size_t sign = pair.find('=');
    if (sign == 0 || sign == std::string_view::npos || sign + 1 == pair.size()) return false;
    const auto isPartOfValue = [](char c) { return isLetterOrDigit(c) || c == '-' || c == '_'; };
    if (!std::all_of(pair.begin(), pair.begin() + static_cast<std::ptrdiff_t>(sign),
                     isLetterOrDigit) ||
        !std::all_of(pair.begin() + static_cast<std::ptrdiff_t>(sign) + 1, pair.end(),
                     isPartOfValue)) {
      return false;
    }
    if (pair.size() == keywords.size()) return true;
    keywords.remove_prefix(pair.size() + 1);
  }
}

/// Replaces the value of a keyword by ICU's own spelling: `islamicc` by "islamic-civil", `ARAB` by
/// "arab". Parts of ICU ignore the other spellings.
///
/// - Returns: false when no such value exists; true when the locale does not have the keyword.
bool makeCanonical(std::string& identifier, const char* keyword,
                   bool (*exists)(const std::string&)) {
  std::array<char, ULOC_FULLNAME_CAPACITY> value{};
  UErrorCode status = U_ZERO_ERROR;
  uloc_getKeywordValue(identifier.c_str(), keyword, value.data(), value.size(), &status);
  if (U_FAILURE(status)) return false;
  if (value.front() == '\0') return true;
  const char* legacy = uloc_toLegacyType(keyword, value.data());
  if (legacy == nullptr) return false;
  // ICU returns a value with only one spelling unchanged, capitals included.
  std::string name(legacy);
  std::transform(name.begin(), name.end(), name.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  if (!exists(name)) return false;
  // Enough for the longest identifier with the longest value.
  std::array<char, std::size_t{2} * ULOC_FULLNAME_CAPACITY> canonical{};
  identifier.copy(canonical.data(), canonical.size() - 1);
  uloc_setKeywordValue(keyword, name.c_str(), canonical.data(), canonical.size(), &status);
  identifier = canonical.data();
  return U_SUCCESS(status);
}

}  // namespace

std::optional<std::string> icuLocale(std::string_view locale) {
  constexpr std::size_t longest = ULOC_FULLNAME_CAPACITY - 1;
  if (locale.empty() || locale.size() > longest) return std::nullopt;
  const std::size_t at = locale.find('@');
  std::optional<std::string> identifier = icuBase(locale.substr(0, at));
  if (!identifier) return std::nullopt;
  if (at != std::string_view::npos) {
    const bool hasExtension = identifier->find('@') != std::string::npos;
    if (hasExtension || !areWellFormedKeywords(locale.substr(at + 1))) return std::nullopt;
    identifier->append(locale.substr(at));
  }
  if (!makeCanonical(*identifier, "calendar", isCalendar)) return std::nullopt;
  if (!makeCanonical(*identifier, "numbers", isNumberingSystem)) return std::nullopt;
  return identifier;
}

}  // namespace vemra::date
