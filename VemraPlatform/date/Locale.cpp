#include "VemraPlatform/date/Locale.hpp"

#include "VemraPlatform/date/LocaleIdentifier.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

namespace vemra::date {
namespace {

/// The POSIX modifiers that name a script; the other modifiers do not change dates.
struct Script {
  std::string_view modifier;
  std::string_view code;
};

constexpr std::array scripts{Script{"@latin", "_Latn"}, Script{"@cyrillic", "_Cyrl"},
                             Script{"@devanagari", "_Deva"}};

/// The locale in the environment variables; nil when none of them is set.
std::optional<std::string> localeOfEnvironment() {
  for (const char* variable : {"LC_ALL", "LC_TIME"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return std::string(value);
  }
  const char* language = std::getenv("LANG");
  return language != nullptr ? std::optional<std::string>(language) : std::nullopt;
}

/// `sr_RS.UTF-8@latin` as `sr_Latn_RS`.
std::string withoutEncoding(std::string_view posix) {
  const std::size_t at = std::min(posix.find('@'), posix.size());
  std::string locale(posix.substr(0, std::min(posix.find('.'), at)));
  for (const Script& script : scripts) {
    if (posix.substr(at) != script.modifier) continue;
    locale.insert(std::min(locale.find('_'), locale.size()), script.code);
  }
  return locale;
}

/// `fa_IR.UTF-8@calendar=gregory` as `fa_IR@calendar=gregory`; "" without an encoding and keywords.
std::string withKeywords(std::string_view posix) {
  const std::size_t dot = posix.find('.');
  const std::size_t at = posix.find('@');
  if (at == std::string_view::npos || dot > at || posix.find('=', at) == std::string_view::npos) {
    return {};
  }
  return std::string(posix.substr(0, dot)).append(posix.substr(at));
}

}  // namespace

bool isKnownLocale(std::string_view locale) {
  // The root, to which locales fall back, is no locale itself and not in the list.
  const bool isRoot = locale == "root" || locale == "und";
  return !isRoot && icuLocale(locale).has_value();
}

std::string systemLocale() {
  const std::optional<std::string> said = localeOfEnvironment();
  if (!said) return "en_US_POSIX";
  // Some people write keywords or an extension there, which ICU has and POSIX does not.
  if (isKnownLocale(*said)) return *said;
  if (std::string locale = withKeywords(*said); isKnownLocale(locale)) return locale;
  std::string locale = withoutEncoding(*said);
  if (locale == "C" || locale == "POSIX") return "en_US_POSIX";
  while (!locale.empty() && !isKnownLocale(locale)) {
    const std::size_t lastPart = locale.find_last_of("_-");
    locale.resize(lastPart == std::string::npos ? 0 : lastPart);
  }
  return locale.empty() ? "root" : locale;
}

}  // namespace vemra::date
