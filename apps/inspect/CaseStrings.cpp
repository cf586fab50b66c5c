#include "apps/inspect/CaseStrings.hpp"

#include <utility>

namespace vemra::inspect {

bool CaseStrings::add(const std::string& key, std::string translation) {
  return translations_.try_emplace(key, std::move(translation)).second;
}

std::optional<std::string> CaseStrings::lookup(std::string_view key) const {
  const auto found = translations_.find(std::string(key));
  if (found == translations_.end()) return std::nullopt;
  return found->second;
}

}  // namespace vemra::inspect
