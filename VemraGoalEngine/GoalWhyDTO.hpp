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
    std::string label{};      ///< the kind of evidence ("Email")
    std::string detail{};     ///< its content in a few words
    std::string reference{};  ///< the engine's own reference to it; no screen shows it
    friend VEMRA_EXPORT bool operator==(const Evidence& a, const Evidence& b);
  };
  /// A chain of relationships leads to the candidate.
  struct Connection {
    std::int64_t hopCount = 0;  ///< relationships in the chain; 1 is a direct one
    friend bool operator==(const Connection&, const Connection&) = default;
  };
  /// The user and the candidate took part in the same threads or meetings.
  struct SharedActivity {
    std::int64_t threadCount = 0;   ///< conversations that both took part in
    std::int64_t meetingCount = 0;  ///< meetings that both took part in
    friend bool operator==(const SharedActivity&, const SharedActivity&) = default;
  };
  /// The reasons without figures.
  enum class Plain : std::uint8_t { nameMatch, generic };

  /// The reason, with its figures or texts.
  std::variant<Evidence, Connection, SharedActivity, Plain> reason = Plain::generic;

  /// A reason of the kind `Evidence`.
  static GoalWhyDTO evidence(std::string label, std::string detail, std::string reference);
  /// A reason of the kind `Connection`; 1 is a direct relationship.
  static GoalWhyDTO connection(std::int64_t hopCount);
  /// A reason of the kind `SharedActivity`.
  static GoalWhyDTO sharedActivity(std::int64_t threadCount, std::int64_t meetingCount);
  /// The plain reason that the name matches the goal.
  static GoalWhyDTO nameMatch();
  /// The plain reason without further details.
  static GoalWhyDTO generic();

  friend bool operator==(const GoalWhyDTO&, const GoalWhyDTO&) = default;
};

}  // namespace vemra
