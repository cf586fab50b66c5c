#pragma once

#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/ui/Environment.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vemra::inspect {

/// The strings table of a case: its keys match under canonical equality, as the platform's do.
class CaseStrings final : public ui::StringsTable {
 public:
  /// Adds a translation; false, and nothing is added, when there is one for that key.
  bool add(const std::string& key, std::string translation);

  std::optional<std::string> lookup(std::string_view key) const override;

 private:
  std::unordered_map<std::string, std::string, text::Hash, text::Equal> translations_;
};

}  // namespace vemra::inspect
