#include "VemraPlatform/date/ZoneinfoFolder.hpp"

#include <algorithm>
#include <cstddef>
#include <string>

namespace vemra::date {

std::optional<TimeZoneFile> zoneOfDatabase(std::string_view name, std::string_view database) {
  const auto isPartOfName = [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '/' ||
           c == '_' || c == '-' || c == '+';
  };
  const bool beginsWithACapital = !name.empty() && name.front() >= 'A' && name.front() <= 'Z';
  if (!beginsWithACapital || !std::all_of(name.begin(), name.end(), isPartOfName)) return {};
  if (name.find("//") != std::string_view::npos) return {};  // the system would find the same file
  const auto content = TimeZoneFile::contentOf(std::string(database) + '/' + std::string(name));
  return content ? TimeZoneFile::parse(*content) : std::nullopt;
}

}  // namespace vemra::date
