#include "VemraPlatform/date/TimeZoneSetting.hpp"

#include "VemraPlatform/date/TimeZone.hpp"
#include "VemraPlatform/date/TimeZoneRule.hpp"

#include <cstddef>
#include <filesystem>
#include <system_error>

namespace vemra::date {
namespace {

namespace fs = std::filesystem;

/// The known time zone whose name follows `zoneinfo/` in a path.
std::optional<std::string> nameInPath(const fs::path& path) {
  const std::string text = path.lexically_normal().string();
  constexpr std::string_view folder = "/zoneinfo/";
  const std::size_t at = text.find(folder);
  if (at == std::string::npos) return std::nullopt;
  std::string_view name = std::string_view(text).substr(at + folder.size());
  // Copies of the whole database: without leap seconds, as in POSIX, and with them.
  for (const std::string_view copy : {"posix/", "right/"}) {
    if (!name.starts_with(copy)) continue;
    name.remove_prefix(copy.size());
    break;
  }
  return isKnownTimeZone(name) ? std::optional<std::string>(name) : std::nullopt;
}

/// The name of a file with this content: the first in alphabetical order, so that the result is
/// always the same.
std::optional<std::string> nameOfContent(const std::string& content, std::string_view database) {
  std::optional<std::string> first;
  std::error_code error;
  const auto options = fs::directory_options::skip_permission_denied;
  for (auto entry = fs::recursive_directory_iterator(database, options, error);
       !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
    std::error_code none;
    if (entry->file_size(none) != content.size() || none) continue;
    const std::optional<std::string> name = nameInPath(entry->path());
    if (!name || (first && *first <= *name)) continue;
    if (TimeZoneFile::contentOf(entry->path().string()) == content) first = name;
  }
  return first;
}

/// Whether the database has time zone files, and none of that name.
bool isUnknownTo(std::string_view database, const std::string& timeZone) {
  return zoneOfDatabase("UTC", database) && !zoneOfDatabase(timeZone, database);
}

}  // namespace

std::optional<std::string> zoneOfPath(const std::string& path, std::string_view database) {
  // As many links as Linux follows.
  constexpr int mostLinks = 40;
  fs::path step(path);
  for (int links = 0; links <= mostLinks; ++links) {
    if (auto name = nameInPath(step)) return name;
    std::error_code error;
    const fs::path target = fs::read_symlink(step, error);
    if (error) break;
    step = fs::weakly_canonical(step.parent_path(), error) / target;
  }
  const std::optional<std::string> content = TimeZoneFile::contentOf(path);
  const auto zone = content ? TimeZoneFile::parse(*content) : std::nullopt;
  if (!zone) return std::nullopt;
  if (auto name = nameOfContent(*content, database)) return name;
  return zone->footer().empty() ? std::nullopt : std::optional(zone->footer());
}

std::optional<std::string> zoneOfSetting(const std::string& setting, std::string_view database) {
  if (setting.empty()) return "UTC";
  if (isKnownTimeZone(setting)) {
    // A name that only ICU has is no name to the C library: `JST` is UTC, `PST8PDT` a rule.
    const bool isUTC = isUnknownTo(database, setting) && !TimeZoneRule::parse(setting);
    return isUTC ? "UTC" : setting;
  }
  const bool isAbsolute = setting.front() == '/';
  if (auto zone =
          zoneOfPath(isAbsolute ? setting : std::string(database) + '/' + setting, database)) {
    return zone;
  }
  return TimeZoneRule::parse(setting) ? std::optional(setting) : std::nullopt;
}

}  // namespace vemra::date
