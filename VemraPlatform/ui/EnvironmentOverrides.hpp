#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Environment.hpp"

#include <memory>
#include <optional>
#include <string>

namespace vemra::ui {

/// The values of an environment that a host decides itself. Every other value stays the one of the
/// environment below it, such as the system's.
///
///     // The palette stays the system's.
///     widget.setOverrides({.locale = "de_DE", .strings = hostsTable});
struct VEMRA_EXPORT EnvironmentOverrides {
  std::optional<std::string> locale = {};  ///< an ICU locale identifier, such as "de_DE"
  /// A name of the tz database, or a POSIX rule as in TZ.
  std::optional<std::string> timeZone = {};
  /// Comes before the table of the environment below, which translates the keys that this one
  /// lacks.
  std::shared_ptr<const StringsTable> strings = {};
  std::optional<double> textScale = {};         ///< the user's text size relative to the usual one
  std::optional<ColorScheme> colorScheme = {};  ///< light or dark
  std::optional<LayoutDirection> layoutDirection = {};  ///< the side where lines begin

  /// The environment with these values in place of its own.
  Environment over(Environment environment) const;

  friend bool operator==(const EnvironmentOverrides&, const EnvironmentOverrides&) = default;
};

/// A table that looks a key up in `first`, and where that has no translation in `second`. Either
/// may be nullptr; the result is nullptr when both are.
VEMRA_EXPORT std::shared_ptr<const StringsTable> inOrder(
    std::shared_ptr<const StringsTable> first, std::shared_ptr<const StringsTable> second);

}  // namespace vemra::ui
