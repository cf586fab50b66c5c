#pragma once

#include "VemraPlatform/ui/Environment.hpp"

#include <optional>
#include <set>
#include <string>

/// \file
/// Strings tables that are hard for a screen.

namespace vemra::qttest {

/// Every key in brackets, with accents and two fifths longer: "[Şåvé one]".
class PseudoStrings final : public ui::StringsTable {
 public:
  std::optional<std::string> lookup(std::string_view key) const override;
  /// The keys that have been looked up so far.
  const std::set<std::string>& asked() const { return asked_; }

 private:
  mutable std::set<std::string> asked_;
};

/// Hebrew, for right-to-left pages.
class HebrewStrings final : public ui::StringsTable {
 public:
  std::optional<std::string> lookup(std::string_view key) const override;
};

}  // namespace vemra::qttest
