#include "VemraPlatform/date/TimeZone.hpp"

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

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

/// Reads up to two digits off the front of a text; nothing when it begins with none.
std::optional<int> takeNumber(std::string_view& text) {
  std::size_t length = 0;
  int number = 0;
  for (; length < 2 && length < text.size() && text[length] >= '0' && text[length] <= '9';
       ++length) {
    number = number * 10 + (text[length] - '0');
  }
  text.remove_prefix(length);
  return length > 0 ? std::optional(number) : std::nullopt;
}

/// The zone of a POSIX rule (`UTC-3`, `<+0530>-5:30`, `CET-1CEST`), as a fixed offset: "GMT+03:00".
///
/// POSIX counts westward, so the sign turns. A rule's summer time is left out: which days it has
/// stands in no database, and a date is seldom another for it.
std::optional<std::string> zoneOfRule(std::string_view rule) {
  const bool isQuoted = rule.starts_with('<');
  const auto endsName = [&](char c) {
    const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return isQuoted ? c == '>' : !isLetter;
  };
  std::size_t length = isQuoted ? 1 : 0;
  while (length < rule.size() && !endsName(rule[length])) ++length;
  if (isQuoted && length < rule.size()) ++length;
  if (length < 3 || length >= rule.size()) return std::nullopt;
  rule.remove_prefix(length);

  const bool isWest = rule.front() != '-';
  if (rule.front() == '-' || rule.front() == '+') rule.remove_prefix(1);
  const std::optional<int> hours = takeNumber(rule);
  if (!hours || *hours > 23) return std::nullopt;
  int minutes = 0;
  if (rule.starts_with(':')) {
    rule.remove_prefix(1);
    minutes = takeNumber(rule).value_or(60);
    if (minutes > 59) return std::nullopt;
  }
  const auto twoDigits = [](int number) {
    return std::string{static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
  };
  return std::string("GMT") + (isWest ? '-' : '+') + twoDigits(*hours) + ':' + twoDigits(minutes);
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
    if (auto zone = zoneOfRule(name)) return *std::move(zone);
  }
  const std::unique_ptr<icu::TimeZone> host(icu::TimeZone::detectHostTimeZone());
  icu::UnicodeString identifier;
  std::string name;
  host->getID(identifier).toUTF8String(name);
  return isKnownTimeZone(name) ? name : "UTC";
}

}  // namespace vemra::date
