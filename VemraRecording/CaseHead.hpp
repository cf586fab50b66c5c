#pragma once

#include "VemraPlatform/ui/Environment.hpp"

#include <string>
#include <string_view>

namespace vemra::recording {

/// What a recorded case begins with besides its first result.
struct CaseHead {
  std::string_view program, version;  ///< what records
  bool isMasked = false;
  const ui::Environment& environment;  ///< in which the first result is shown
};

/// The beginning of a recorded case, up to the bracket that begins its steps. What recorded it
/// comes first, so that a reader knows it when it finds something it does not know.
///
/// - Parameter document: the first result.
std::string headText(const CaseHead& head, std::string_view document);

}  // namespace vemra::recording
