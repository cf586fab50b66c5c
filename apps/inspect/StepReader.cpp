#include "apps/inspect/StepReader.hpp"

#include "apps/documents/EnumerationNames.hpp"
#include "apps/documents/ResultReader.hpp"
#include "apps/inspect/CallReader.hpp"

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

/// The keys of every kind of step. Whether they may stand together is checked when all are read.
struct Said {
  std::optional<Step> press;
  std::optional<std::string> select, type, submit, text;
  std::optional<GoalOutcomeValue> value;
  std::shared_ptr<const GetGoalSnapshotResponse> result;
  std::optional<std::size_t> screen, index;
  std::optional<std::string> call;
};

std::size_t readIndex(JsonReader& in) {
  const std::int64_t index = in.integer();
  if (index < 0) in.fail("an integer from 0", std::to_string(index));
  return static_cast<std::size_t>(index);
}

Step readPress(JsonReader& in) {
  if (in.next() == JsonKind::string) return PressIdentifier{in.string()};
  if (in.next() != JsonKind::object) in.failNext("an identifier or an object with a title");
  std::optional<std::string> title, identifier;
  std::size_t index = 0;
  in.object({
      {"title", optional, [&] { title = in.string(); }},
      {"index", optional, [&] { index = readIndex(in); }},
      {"identifier", optional, [&] { identifier = in.string(); }},
  });
  if (title && identifier) in.failAt("identifier", "no identifier beside a title", "both");
  if (identifier) return PressIdentifier{*std::move(identifier), index};
  if (!title) in.fail("the key \"title\"", "none");
  return PressTitle{*std::move(title), index};
}

/// The one key that names the action of the step.
std::string_view readVerb(const JsonReader& in, const Said& said) {
  const std::array<std::pair<std::string_view, bool>, 7> verbs{{
      {"press", said.press.has_value()},
      {"select", said.select.has_value()},
      {"type", said.type.has_value()},
      {"submit", said.submit.has_value()},
      {"result", said.result != nullptr},
      {"screen", said.screen.has_value() && said.result == nullptr},
      {"call", said.call.has_value()},
  }};
  std::string_view given;
  for (const auto& [verb, isGiven] : verbs) {
    if (!isGiven) continue;
    if (!given.empty()) {
      in.failAt(verb, "one act a step", inQuotes(verb) + " beside " + inQuotes(given));
    }
    given = verb;
  }
  if (given.empty())
    in.fail("one of the keys press, select, type, submit, result, screen, call", "none");
  return given;
}

/// Checks that `key` is given for the action `owner`, and for no other.
void checkCompanion(const JsonReader& in, std::string_view key, bool isGiven,
                    std::string_view owner, std::string_view verb) {
  if (verb == owner && !isGiven) in.fail("the key " + inQuotes(key), "none");
  if (verb != owner && isGiven) {
    in.failAt(key, "no such key beside " + inQuotes(verb), inQuotes(key));
  }
}

/// Checks the number of a screen: a result may be shown on an existing screen or on the next new
/// one, and only an existing screen can be shown again. Counts a new screen.
void checkScreen(const JsonReader& in, const Said& said, std::size_t& screenCount) {
  if (!said.screen) return;
  const std::size_t last = said.result ? screenCount : screenCount - 1;
  if (*said.screen > last) {
    in.failAt("screen", "a screen from 0 to " + std::to_string(last), std::to_string(*said.screen));
  }
  if (*said.screen == screenCount) ++screenCount;
}

}  // namespace

Step readStep(JsonReader& in, std::size_t& screenCount) {
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
      {"screen", optional, [&] { said.screen = readIndex(in); }},
      {"index", optional, [&] { said.index = readIndex(in); }},
      {"call", optional, [&] { said.call = recording::callText(readCall(in)); }},
  });
  const std::string_view verb = readVerb(in, said);
  checkCompanion(in, "value", said.value.has_value(), "select", verb);
  checkCompanion(in, "text", said.text.has_value(), "type", verb);
  if (said.index && verb != "select" && verb != "type" && verb != "submit") {
    in.failAt("index", "no such key beside " + inQuotes(verb), inQuotes("index"));
  }
  checkScreen(in, said, screenCount);
  const std::size_t index = said.index.value_or(0);
  if (said.press) return *std::move(said.press);
  if (said.select) return Select{*std::move(said.select), *said.value, index};
  if (said.type) return Type{*std::move(said.type), *std::move(said.text), index};
  if (said.submit) return Submit{*std::move(said.submit), index};
  if (said.call) return ExpectCall{*std::move(said.call)};
  if (said.screen && !said.result) return ShowScreen{*said.screen};
  return NewResult{std::move(said.result), said.screen};
}

}  // namespace vemra::inspect
