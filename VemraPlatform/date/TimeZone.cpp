#include "VemraPlatform/date/TimeZone.hpp"

#include <cstdlib>
#include <memory>

#include <unicode/timezone.h>
#include <unicode/unistr.h>

namespace vemra::date {
namespace {

/// The name in a TZ: behind a colon, a `zoneinfo` folder, and before a POSIX rule.
std::string_view nameIn(std::string_view setting) {
  if (setting.starts_with(':')) setting.remove_prefix(1);
  constexpr std::string_view folder = "/zoneinfo/";
  const std::size_t path = setting.find(folder);
  if (path != std::string_view::npos) setting.remove_prefix(path + folder.size());
  return setting.substr(0, setting.find(','));
}

}  // namespace

bool isKnownTimeZone(std::string_view timeZone) {
  constexpr std::size_t longest = 64;
  if (timeZone.empty() || timeZone.size() > longest || timeZone == "Etc/Unknown") return false;
  if (timeZone.find('\0') != std::string_view::npos) return false;  // ICU would read up to there
  const auto name = icu::UnicodeString::fromUTF8(
      icu::StringPiece(timeZone.data(), static_cast<std::int32_t>(timeZone.size())));
  icu::UnicodeString canonical;
  UBool isListed = false;
  UErrorCode status = U_ZERO_ERROR;
  icu::TimeZone::getCanonicalID(name, canonical, isListed, status);
  return U_SUCCESS(status) && isListed;
}

std::string systemTimeZone() {
  if (const char* setting = std::getenv("TZ")) {
    if (*setting == '\0') return "UTC";
    const std::string_view name = nameIn(setting);
    if (isKnownTimeZone(name)) return std::string(name);
  }
  const std::unique_ptr<icu::TimeZone> host(icu::TimeZone::detectHostTimeZone());
  icu::UnicodeString identifier;
  std::string name;
  host->getID(identifier).toUTF8String(name);
  return isKnownTimeZone(name) ? name : "UTC";
}

}  // namespace vemra::date
