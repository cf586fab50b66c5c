#pragma once

#include "VemraPlatform/Export.hpp"

#include <cstdint>
#include <string>
#include <variant>

namespace vemra {

/// Why the engine suggests a person or a path.
///
/// Three reasons contain figures or texts; the plain ones contain nothing, and the engine may add
/// further plain ones at the end. Strings are equal under canonical equivalence.
struct VEMRA_EXPORT GoalWhyDTO {
  /// A piece of evidence speaks for the candidate.
  struct Evidence {
    std::string label;      ///< the kind of evidence ("Email")
    std::string detail;     ///< its content in a few words
    std::string reference;  ///< the engine's own reference to it; no screen shows it
    friend VEMRA_EXPORT bool operator==(const Evidence& a, const Evidence& b);
  };
  /// A chain of relationships leads to the candidate.
  struct Connection {
    std::int64_t hopCount = 0;  ///< relationships in the chain; 1 is a direct one
    friend bool operator==(const Connection&, const Connection&) = default;
  };
  /// The user and the candidate took part in the same threads or meetings.
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
