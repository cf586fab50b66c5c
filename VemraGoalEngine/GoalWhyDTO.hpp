#pragma once

#include "VemraPlatform/Export.hpp"

#include <cstdint>
#include <string>
#include <variant>

namespace vemra {

/// Why the engine suggests a person or a path.
///
/// Three reasons carry figures or texts; the plain ones carry nothing, and the engine may add
/// further plain ones at the end. Strings are equal under canonical equivalence.
struct VEMRA_EXPORT GoalWhyDTO {
  /// A piece of evidence speaks for the candidate.
  struct Evidence {
    std::string label;      ///< what kind of evidence it is ("Email")
    std::string detail;     ///< what it says
    std::string reference;  ///< the engine's own handle on it; no screen shows it
    friend VEMRA_EXPORT bool operator==(const Evidence& a, const Evidence& b);
  };
  /// A chain of relationships leads to the candidate.
  struct Connection {
    std::int64_t hopCount = 0;  ///< relationships in the chain; 1 is a direct one
    friend bool operator==(const Connection&, const Connection&) = default;
  };
  /// The user and the candidate took part in the same things.
  struct SharedActivity {
    std::int64_t threadCount = 0;
    std::int64_t meetingCount = 0;
    friend bool operator==(const SharedActivity&, const SharedActivity&) = default;
  };
  /// The reasons without figures.
  enum class Plain : std::uint8_t { nameMatch, generic };

  std::variant<Evidence, Connection, SharedActivity, Plain> reason = Plain::generic;

  static GoalWhyDTO evidence(std::string label, std::string detail, std::string reference);
  static GoalWhyDTO connection(std::int64_t hopCount);
  static GoalWhyDTO sharedActivity(std::int64_t threadCount, std::int64_t meetingCount);
  static GoalWhyDTO nameMatch();
  static GoalWhyDTO generic();

  friend bool operator==(const GoalWhyDTO&, const GoalWhyDTO&) = default;
};

}  // namespace vemra
