#include "apps/inspect/StepReader.hpp"

#include "apps/documents/EnumerationNames.hpp"
#include "apps/documents/ResultReader.hpp"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

namespace vemra::inspect {
namespace {

using documents::inQuotes;
using documents::JsonKind;
using documents::JsonReader;
using enum documents::Presence;

/// Everything a step may say. Which of it belongs together is known when all of it has been read.
struct Said {
  std::optional<Step> press;
  std::optional<std::string> select, type, submit, text;
  std::optional<GoalOutcomeValue> value;
  std::shared_ptr<const GetGoalSnapshotResponse> result;
};

std::size_t readIndex(JsonReader& in) {
  const std::int64_t index = in.integer();
  if (index < 0) in.fail("an integer from 0", std::to_string(index));
  return static_cast<std::size_t>(index);
}

Step readPress(JsonReader& in) {
  if (in.next() == JsonKind::string) return PressIdentifier{in.string()};
  if (in.next() != JsonKind::object) in.failNext("an identifier or an object with a title");
  PressTitle press;
  in.object({
      {"title", required, [&] { press.title = in.string(); }},
      {"index", optional, [&] { press.index = readIndex(in); }},
  });
  return press;
}

/// The one key that says what the step does.
std::string_view readVerb(const JsonReader& in, const Said& said) {
  const std::array<std::pair<std::string_view, bool>, 5> verbs{{
      {"press", said.press.has_value()},
      {"select", said.select.has_value()},
      {"type", said.type.has_value()},
      {"submit", said.submit.has_value()},
      {"result", said.result != nullptr},
  }};
  std::string_view given;
  for (const auto& [verb, isGiven] : verbs) {
    if (!isGiven) continue;
    if (!given.empty()) {
      in.failAt(verb, "one act a step", inQuotes(verb) + " beside " + inQuotes(given));
    }
    given = verb;
  }
  if (given.empty()) in.fail("one of the keys press, select, type, submit, result", "none");
  return given;
}

/// `key` belongs to steps of `owner` and to no others.
void checkCompanion(const JsonReader& in, std::string_view key, bool isGiven,
                    std::string_view owner, std::string_view verb) {
  if (verb == owner && !isGiven) in.fail("the key " + inQuotes(key), "none");
  if (verb != owner && isGiven) {
    in.failAt(key, "no such key beside " + inQuotes(verb), inQuotes(key));
  }
}

}  // namespace

Step readStep(JsonReader& in) {
  Said said;
  const auto value = [&] {
    said.value = static_cast<GoalOutcomeValue>(in.name(documents::outcomeValueNames));
  };
  in.object({
      {"press", optional, [&] { said.press = readPress(in); }},
      {"select", optional, [&] { said.select = in.string(); }},
      {"value", optional, value},
      {"type", optional, [&] { said.type = in.string(); }},
      {"text", optional, [&] { said.text = in.string(); }},
      {"submit", optional, [&] { said.submit = in.string(); }},
      {"result", optional,
       [&] {
         said.result = std::make_shared<const GetGoalSnapshotResponse>(documents::readResult(in));
       }},
  });
  const std::string_view verb = readVerb(in, said);
  checkCompanion(in, "value", said.value.has_value(), "select", verb);
  checkCompanion(in, "text", said.text.has_value(), "type", verb);
  if (said.press) return *std::move(said.press);
  if (said.select) return Select{*std::move(said.select), *said.value};
  if (said.type) return Type{*std::move(said.type), *std::move(said.text)};
  if (said.submit) return Submit{*std::move(said.submit)};
  return NewResult{std::move(said.result)};
}

}  // namespace vemra::inspect
