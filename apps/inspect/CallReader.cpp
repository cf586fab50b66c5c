#include "apps/inspect/CallReader.hpp"

#include "apps/documents/EnumerationNames.hpp"
#include "apps/documents/WhyReader.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vemra::inspect {
namespace {

using documents::JsonKind;
using documents::JsonReader;
using enum documents::Presence;

constexpr std::array<std::string_view, 4> callbackNames{"onOpenPerson", "onShowEvidence",
                                                        "onFocusPathInStarfold", "onRecordOutcome"};

/// The keys of every kind of argument. The callback decides which of them must be present; its key
/// may come after the argument.
struct Argument {
  std::optional<std::string> text;
  std::optional<std::vector<std::string>> personRefs;
  std::optional<GoalWhyDTO> why;
  std::int64_t strength = 0;
  std::optional<GoalOutcomeSubjectKind> subjectKind;
  std::optional<GoalOutcomeValue> outcome;
  std::optional<std::string> subjectRef, note, correctsOutcomeID;

  bool isPath() const { return !text && personRefs && why && !subjectKind && !outcome; }
  bool isInput() const { return !text && !personRefs && !why && subjectKind && outcome; }
};

Argument readArgument(JsonReader& in) {
  Argument argument;
  if (in.next() == JsonKind::string) {
    argument.text = in.string();
    return argument;
  }
  const auto readRefs = [&] {
    argument.personRefs.emplace();
    in.array([&] { argument.personRefs->push_back(in.string()); });
  };
  const auto readKind = [&] {
    argument.subjectKind =
        static_cast<GoalOutcomeSubjectKind>(in.name(documents::subjectKindNames));
  };
  const auto readOutcome = [&] {
    argument.outcome = static_cast<GoalOutcomeValue>(in.name(documents::outcomeValueNames));
  };
  in.object({
      {"personRefs", optional, readRefs},
      {"why", optional, [&] { argument.why = documents::readWhy(in); }},
      {"strength", optional, [&] { argument.strength = in.integer(); }},
      {"subjectKind", optional, readKind},
      {"subjectRef", optional, [&] { argument.subjectRef = in.stringOrNull(); }},
      {"outcome", optional, readOutcome},
      {"note", optional, [&] { argument.note = in.stringOrNull(); }},
      {"correctsOutcomeID", optional, [&] { argument.correctsOutcomeID = in.stringOrNull(); }},
  });
  return argument;
}

}  // namespace

recording::Call readCall(JsonReader& in) {
  std::size_t callback = 0;
  Argument argument;
  in.object({
      {"callback", required, [&] { callback = in.name(callbackNames); }},
      {"argument", required, [&] { argument = readArgument(in); }},
  });
  if (callback <= 1 && argument.text) {
    if (callback == 0) return recording::OpenPerson{*std::move(argument.text)};
    return recording::ShowEvidence{*std::move(argument.text)};
  }
  if (callback == 2 && argument.isPath()) {
    return recording::FocusPathInStarfold{
        {*std::move(argument.personRefs), *std::move(argument.why), argument.strength}};
  }
  if (callback == 3 && argument.isInput()) {
    return recording::RecordOutcome{{*argument.subjectKind, std::move(argument.subjectRef),
                                     *argument.outcome, std::move(argument.note),
                                     std::move(argument.correctsOutcomeID)}};
  }
  in.failAt("argument", "the argument of " + std::string(callbackNames[callback]),
            "the argument of another callback");
}

}  // namespace vemra::inspect
