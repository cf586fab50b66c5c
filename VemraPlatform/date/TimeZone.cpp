#include "VemraPlatform/date/TimeZone.hpp"

#include "VemraPlatform/date/ZoneinfoFolder.hpp"

#include <cstddef>
#include <cstdint>

#include <unicode/timezone.h>
#include <unicode/unistr.h>

namespace vemra::date {
namespace {

bool isListedByICU(std::string_view timeZone) {
  const auto name = icu::UnicodeString::fromUTF8(
      icu::StringPiece(timeZone.data(), static_cast<std::int32_t>(timeZone.size())));
  icu::UnicodeString canonical;
  UBool isListed = false;
  UErrorCode status = U_ZERO_ERROR;
  icu::TimeZone::getCanonicalID(name, canonical, isListed, status);
  return U_SUCCESS(status) && isListed;
}

}  // namespace

bool isKnownTimeZone(std::string_view timeZone) {
  constexpr std::size_t longest = 64;
  if (timeZone.empty() || timeZone.size() > longest || timeZone == "Etc/Unknown") return false;
  if (timeZone.find('\0') != std::string_view::npos) return false;  // ICU would stop reading there
  return isListedByICU(timeZone) || zoneOfDatabase(timeZone).has_value();
}

}  // namespace vemra::date
