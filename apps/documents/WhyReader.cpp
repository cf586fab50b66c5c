#include "apps/documents/WhyReader.hpp"

#include "apps/documents/EnumerationNames.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace vemra::documents {
namespace {

/// All fields that a reason may have. Only `kind` decides which of them are allowed, and `kind` may
/// come last.
struct Payload {
  WhyKind kind = WhyKind::generic;
  std::optional<std::string> label, detail, reference;
  std::optional<std::int64_t> hopCount, threadCount, meetingCount;
};

std::span<const std::string_view> keysOf(WhyKind kind) {
  static constexpr std::array<std::string_view, 3> evidence{"label", "detail", "reference"};
  static constexpr std::array<std::string_view, 1> connection{"hopCount"};
  static constexpr std::array<std::string_view, 2> activity{"threadCount", "meetingCount"};
  switch (kind) {
    case WhyKind::evidence:
      return evidence;
    case WhyKind::connection:
      return connection;
    case WhyKind::sharedActivity:
      return activity;
    case WhyKind::nameMatch:
    case WhyKind::generic:
      break;
  }
  return {};
}

/// Whether the given keys are those of the kind.
bool hasItsKeys(const Payload& payload) {
  const bool isEvidence = payload.kind == WhyKind::evidence;
  const bool isActivity = payload.kind == WhyKind::sharedActivity;
  return payload.label.has_value() == isEvidence && payload.detail.has_value() == isEvidence &&
         payload.reference.has_value() == isEvidence &&
         payload.hopCount.has_value() == (payload.kind == WhyKind::connection) &&
         payload.threadCount.has_value() == isActivity &&
         payload.meetingCount.has_value() == isActivity;
}

/// Throws the error for the first given key that the kind does not have, or for one that is missing.
[[noreturn]] void failForKeys(const JsonReader& reader, const Payload& payload) {
  const std::array<std::pair<std::string_view, bool>, 6> given{{
      {"label", payload.label.has_value()},
      {"detail", payload.detail.has_value()},
      {"reference", payload.reference.has_value()},
      {"hopCount", payload.hopCount.has_value()},
      {"threadCount", payload.threadCount.has_value()},
      {"meetingCount", payload.meetingCount.has_value()},
  }};
  const std::span<const std::string_view> wanted = keysOf(payload.kind);
  const std::string_view kind = nameIn(whyKindNames, payload.kind);
  for (const auto& [key, isGiven] : given) {
    const bool isWanted = std::ranges::find(wanted, key) != wanted.end();
    if (isGiven && !isWanted) {
      std::string expected = "no such key with the kind " + inQuotes(kind);
      if (!wanted.empty()) {
        expected += ", which has";
        for (std::string_view one : wanted) {
          expected.append(one == wanted.front() ? " " : ", ").append(one);
        }
      }
      reader.failAt(key, expected, inQuotes(key));
    }
    if (isWanted && !isGiven) reader.fail("the key " + inQuotes(key), "none");
  }
  throw std::logic_error("hasItsKeys and keysOf disagree");
}

using enum Presence;

constexpr auto payloadFields = std::to_array<RecordField<Payload>>({
    {"kind", required,
     [](auto& in, auto& payload) { payload.kind = static_cast<WhyKind>(in.name(whyKindNames)); }},
    {"label", optional, [](auto& in, auto& payload) { in.string(payload.label.emplace()); }},
    {"detail", optional, [](auto& in, auto& payload) { in.string(payload.detail.emplace()); }},
    {"reference", optional,
     [](auto& in, auto& payload) { in.string(payload.reference.emplace()); }},
    {"hopCount", optional, [](auto& in, auto& payload) { payload.hopCount = in.integer(); }},
    {"threadCount", optional, [](auto& in, auto& payload) { payload.threadCount = in.integer(); }},
    {"meetingCount", optional,
     [](auto& in, auto& payload) { payload.meetingCount = in.integer(); }},
});

}  // namespace

GoalWhyDTO readWhy(JsonReader& in) {
  Payload payload;
  in.object(payloadFields, payload);
  if (!hasItsKeys(payload)) failForKeys(in, payload);
  switch (payload.kind) {
    case WhyKind::evidence:
      return GoalWhyDTO::evidence(std::move(*payload.label), std::move(*payload.detail),
                                  std::move(*payload.reference));
    case WhyKind::connection:
      return GoalWhyDTO::connection(*payload.hopCount);
    case WhyKind::sharedActivity:
      return GoalWhyDTO::sharedActivity(*payload.threadCount, *payload.meetingCount);
    case WhyKind::nameMatch:
      return GoalWhyDTO::nameMatch();
    case WhyKind::generic:
      break;
  }
  return GoalWhyDTO::generic();
}

}  // namespace vemra::documents
