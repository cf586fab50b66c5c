// The screen against a model of it, under random events: presses, typing, snapshots in between.

#include "tests/Random.hpp"
#include "tests/VemraGoalSurface/RandomWorld.hpp"
#include "tests/VemraGoalSurface/SampleScreen.hpp"
#include "tests/VemraGoalSurface/ScreenModel.hpp"
#include "tests/VemraGoalSurface/Shape.hpp"

#include <algorithm>
#include <sstream>

#include <gtest/gtest.h>

namespace vemra::screentest {
namespace {

// In parts that can run in parallel.
constexpr int shares = 4;
constexpr int sequencesInAShare = testing::rounds(1'250);
constexpr int eventsInASequence = 14;

const std::vector<model::Note> notes{
    {"", std::nullopt}, {"  ", std::nullopt},    {"\u00A0\u2003", std::nullopt},
    {"met", "met"},     {" met <b>", "met <b>"}, {"two  words ", "two  words"}};

/// One random story, carried out on the screen and on the model.
class Story {
 public:
  explicit Story(std::uint64_t seed) : dice_(seed), model_(references, notes), screen_(moved()) {
    log_ << "seed " << seed << '\n';
  }

  /// The first difference between the screen and the model, or "".
  std::string run() {
    for (int event = 0; event < eventsInASequence; ++event) {
      step();
      if (std::string difference = compare(); !difference.empty()) {
        return difference + "\nafter\n" + log_.str() + screen_.outline();
      }
    }
    return "";
  }

  std::map<std::string, int> counts;  ///< what happened, to see that everything does

 private:
  /// The view after a change of the data, which the model gets too.
  GoalResultView moved() {
    world_.change();
    model_.show(world_.world());
    return view();
  }

  GoalResultView view() {
    return GoalResultView(
        GoalResultSnapshotV1(world_.result()),
        [this](const std::string& ref) { asked_.push_back("open " + inQuotes(ref)); },
        [this](const std::string& id) { asked_.push_back("evidence " + inQuotes(id)); },
        [this](const GoalPathCandidateDTO&) { asked_.push_back("focus"); },
        [this](const GoalOutcomeRecordingInput& input) {
          asked_.push_back(described(input));
          if (storesAtOnce_) screen_.show(view());
        });
  }

  void tell(const std::string& event) {
    ++counts[event];
    log_ << "  " << event << '\n';
  }

  void step() {
    const std::vector<model::Subject> subjects = model_.subjects();
    if (subjects.empty() || dice_.oneIn(5)) {
      tell("snapshot");
      screen_.show(moved());
      return;
    }
    const std::size_t index = dice_.below(subjects.size());
    const model::Subject& subject = subjects[index];
    if (dice_.oneIn(8)) return leave(index, subject);
    if (model_.form(subject).isEditing) return edit(index, subject);
    if (model_.inForce(subject)) {
      tell("correct");
      model_.correct(subject);
      act(index, subject.prefix + ".outcome.correct", ui::Press{});
    } else {
      tell("record outcome");
      model_.recordOutcome(subject);
      act(index, subject.prefix + ".outcome.start", ui::Press{});
    }
  }

  void leave(std::size_t index, const model::Subject& subject) {
    if (subject.isPath) {
      tell("focus");
      expected_.push_back("focus");
      screen_.press("vemra.goal.path.see-in-starfold");
      return;
    }
    const auto elements = controls(screen_).at(index)->parent->children();
    const auto& evidenceID = model_.world().people.at(index).evidenceID;
    if (evidenceID && dice_.oneIn(2)) {
      tell("evidence");
      expected_.push_back("evidence " + inQuotes(evidenceID));
      screen_.graph().deliver(std::next(elements.begin(), 2)->id, ui::Press{});
      return;
    }
    tell("open");
    expected_.push_back("open " + inQuotes(bytes(*subject.reference)));
    screen_.graph().deliver(elements.front().id, ui::Press{});
  }

  void edit(std::size_t index, const model::Subject& subject) {
    const std::string prefix = subject.prefix + ".outcome.";
    switch (dice_.below(6)) {
      case 0:
      case 1: {
        tell("choose");
        const std::size_t value = dice_.oneIn(3) ? model::somethingElse : dice_.below(8);
        model_.choose(subject, static_cast<int>(value));
        act(index, prefix + "picker", ui::Select{ui::Tag(allGoalOutcomeValues[value])});
        break;
      }
      case 2: {
        tell("write");
        const model::Note& note = notes[dice_.below(notes.size())];
        model_.write(subject, note.typed);
        act(index, prefix + "note", ui::EditText{note.typed});
        break;
      }
      case 3:
        tell("return");
        act(index, prefix + "note", ui::Submit{});
        break;
      case 4:
        tell("cancel");
        model_.cancel(subject);
        act(index, prefix + "cancel", ui::Press{});
        break;
      default:
        save(index, subject);
    }
  }

  void save(std::size_t index, const model::Subject& subject) {
    const std::string identifier = subject.prefix + ".outcome.save";
    if (!model_.maySave(subject)) {
      tell("save while disabled");
      act(index, identifier, ui::Press{}, ui::Delivery::disabled);
      return;
    }
    storesAtOnce_ = dice_.oneIn(2);
    tell(storesAtOnce_ ? "save, stored at once" : "save, never stored");
    const model::Form form = model_.form(subject);
    const model::Record* corrected = model_.inForce(subject);
    model::Record record{"",         subject.isPath,         subject.reference,
                         form.value, model_.sent(form.note), std::nullopt};
    if (corrected) record.correctsID = corrected->id;
    expected_.push_back(model_.save(subject));
    if (storesAtOnce_) world_.record(std::move(record));
    act(index, identifier, ui::Press{});
    if (storesAtOnce_) model_.show(world_.world());
  }

  /// Acts on the element of that identifier inside the control at `index`.
  void act(std::size_t index, const std::string& identifier, ui::Event event,
           ui::Delivery wanted = ui::Delivery::acted) {
    std::vector<const testing::RenderedTree::Node*> pending{controls(screen_).at(index)};
    while (!pending.empty()) {
      const auto& node = *pending.back();
      pending.pop_back();
      if (node.element.accessibilityIdentifier() == identifier) {
        const ui::Delivery delivery = screen_.graph().deliver(node.id, std::move(event));
        if (delivery != wanted) problem_ = "another delivery at " + identifier;
        return;
      }
      for (const auto& child : node.children()) pending.push_back(&child);
    }
    problem_ = "no " + identifier;
  }

  std::string compare() {
    if (!problem_.empty()) return problem_;
    if (asked_ != expected_) {
      return "asked of the host: " + ::testing::PrintToString(asked_) +
             "\nexpected: " + ::testing::PrintToString(expected_);
    }
    const Lines actual = shape(screen_);
    const Lines wanted = model_.lines();
    if (actual == wanted) return compareForms();
    for (std::size_t i = 0; i < std::max(actual.size(), wanted.size()); ++i) {
      const std::string a = i < actual.size() ? actual[i] : "nothing";
      const std::string w = i < wanted.size() ? wanted[i] : "nothing";
      if (a != w) return "line " + std::to_string(i) + "\n  shown:    " + a + "\n  expected: " + w;
    }
    return "unreachable";
  }

  /// The state of the controls, also while they do not show it.
  std::string compareForms() {
    const auto all = controls(screen_);
    const std::vector<model::Subject> subjects = model_.subjects();
    for (std::size_t i = 0; i < subjects.size(); ++i) {
      const model::Form& form = model_.form(subjects[i]);
      const ui::Properties wanted{
          {"isEditing", form.isEditing},
          {"selectedValue", std::string(model::valueNames[form.value].code)},
          {"noteText", form.note}};
      const ui::Properties properties = screen_.graph().properties(all.at(i)->id);
      const ui::Property& state = properties.back();
      if (state.name != "state" || !sameTexts(std::get<ui::Properties>(state.value), wanted)) {
        return "another state at " + subjects[i].prefix + ", expected note " +
               ::testing::PrintToString(form.note);
      }
    }
    return "";
  }

  static bool sameTexts(const ui::Properties& a, const ui::Properties& b) {
    return std::ranges::equal(a, b, [](const ui::Property& left, const ui::Property& right) {
      if (left.name != right.name || left.value.index() != right.value.index()) return false;
      if (auto* flag = std::get_if<bool>(&left.value)) return *flag == std::get<bool>(right.value);
      return std::get<std::string>(left.value) == std::get<std::string>(right.value);
    });
  }

  Dice dice_;
  std::ostringstream log_;
  RandomWorld world_{dice_};
  model::Screen model_;
  bool storesAtOnce_ = false;
  std::vector<std::string> asked_;
  std::vector<std::string> expected_;
  std::string problem_;
  testing::Screen screen_;
};

class ScreenModel : public ::testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(Share, ScreenModel, ::testing::Range(0, shares));

TEST_P(ScreenModel, AgreesWithTheScreenUnderRandomEvents) {
  std::map<std::string, int> counts;
  for (int sequence = 1; sequence <= sequencesInAShare; ++sequence) {
    Story story(static_cast<std::uint64_t>(GetParam() * sequencesInAShare + sequence));
    const std::string difference = story.run();
    ASSERT_EQ(difference, "");
    for (const auto& [event, count] : story.counts) counts[event] += count;
  }
  for (const char* event : {"snapshot", "record outcome", "correct", "choose", "write", "return",
                            "cancel", "save while disabled", "save, stored at once",
                            "save, never stored", "open", "evidence", "focus"}) {
    EXPECT_GE(counts[event], testing::rounds(100)) << event << " is too rare";
  }
}

}  // namespace
}  // namespace vemra::screentest
