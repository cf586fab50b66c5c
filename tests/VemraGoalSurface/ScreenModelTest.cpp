// The screen against a model of it, under random events: presses, typing, snapshots in between.

#include "tests/VemraGoalSurface/SampleScreen.hpp"
#include "tests/VemraGoalSurface/ScreenModel.hpp"
#include "tests/VemraGoalSurface/Shape.hpp"

#include <algorithm>
#include <random>
#include <sstream>

#include <gmock/gmock.h>

namespace vemra::screentest {
namespace {

// In shares that can run side by side.
constexpr int shares = 4;
constexpr int sequencesInAShare = 1'250;
constexpr int eventsInASequence = 14;

const std::vector<model::Reference> references{
    {"a", 0}, {composed, 1}, {decomposed, 1}, {"b.c d", 2}, {"", 3}};
const std::vector<model::Note> notes{
    {"", std::nullopt}, {"  ", std::nullopt},    {"\u00A0\u2003", std::nullopt},
    {"met", "met"},     {" met <b>", "met <b>"}, {"two  words ", "two  words"}};

GoalOutcomeValue valueNamed(std::string_view name) {
  return *std::ranges::find(allGoalOutcomeValues, name,
                            [](GoalOutcomeValue value) { return caseName(value); });
}

/// One random story, told to the screen and to the model at once.
class Story {
 public:
  explicit Story(std::uint64_t seed)
      : random_(seed), model_(references, notes), screen_((change(), model_.show(world_), view())) {
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
  std::size_t below(std::size_t bound) {
    return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_);
  }
  bool oneIn(std::size_t n) { return below(n) == 0; }

  model::Person randomPerson() {
    model::Person person{static_cast<int>(below(references.size())), std::nullopt, std::nullopt};
    if (!oneIn(4)) person.name = std::string(1, static_cast<char>('A' + below(5)));
    if (oneIn(2)) person.evidenceID = "ev" + std::to_string(below(3));
    return person;
  }

  model::Record randomRecord() {
    model::Record record{"r" + std::to_string(++lastID_), oneIn(3),     std::nullopt,
                         static_cast<int>(below(8)),      std::nullopt, std::nullopt};
    if (!oneIn(6)) record.reference = static_cast<int>(below(references.size()));
    if (!record.isPath && !record.reference) record.reference = 0;
    if (oneIn(2)) record.note = oneIn(3) ? "" : "stored";
    if (oneIn(3)) record.correctsID = oneIn(3) ? "" : "r0";
    return record;
  }

  /// The world moves on.
  void change() {
    switch (below(8)) {
      case 0:
        std::ranges::shuffle(world_.people, random_);
        break;
      case 1:
      case 2:
        world_.people.insert(
            world_.people.begin() + static_cast<std::ptrdiff_t>(below(world_.people.size() + 1)),
            randomPerson());
        break;
      case 3:
        if (!world_.people.empty()) {
          world_.people.erase(world_.people.begin() +
                              static_cast<std::ptrdiff_t>(below(world_.people.size())));
        }
        break;
      case 4:
        for (model::Person& person : world_.people) {
          const int reference = person.reference;
          person = randomPerson();
          person.reference = reference;
        }
        break;
      case 5:
        world_.paths.clear();
        while (oneIn(2)) {
          world_.paths.push_back(oneIn(4) ? std::optional<int>()
                                          : static_cast<int>(below(references.size())));
        }
        break;
      case 6:
        world_.records.push_back(randomRecord());
        break;
      case 7:
        if (oneIn(4)) {
          world_.people.clear();
        } else if (!world_.records.empty()) {
          world_.records.pop_back();
        }
        break;
    }
  }

  GoalResultView view() {
    Result result;
    result.goal.title = "Goal";
    std::vector<GoalPersonCandidateDTO> people;
    for (const model::Person& one : world_.people) {
      people.push_back(person(bytes(one.reference), one.name));
      people.back().why = GoalWhyDTO::generic();
      if (one.evidenceID) people.back().evidenceIDs = {*one.evidenceID};
    }
    std::vector<GoalPathCandidateDTO> paths;
    for (const auto& last : world_.paths) {
      paths.push_back(
          path(last ? std::vector<std::string>{"x", bytes(*last)} : std::vector<std::string>{},
               GoalWhyDTO::generic()));
    }
    std::vector<GoalOutcomeDTO> outcomes;
    for (const model::Record& record : world_.records) {
      outcomes.push_back(outcome(
          record.id, record.isPath ? SubjectKind::path : SubjectKind::person,
          record.reference ? OptionalText(bytes(*record.reference)) : std::nullopt,
          valueNamed(model::valueNames[record.value].code), record.note, record.correctsID));
    }
    result.people = people;
    result.paths = paths;
    result.outcomes = outcomes;
    return GoalResultView(
        GoalResultSnapshotV1(result),
        [this](const std::string& ref) { asked_.push_back("open " + inQuotes(ref)); },
        [this](const std::string& id) { asked_.push_back("evidence " + inQuotes(id)); },
        [this](const GoalPathCandidateDTO&) { asked_.push_back("focus"); },
        [this](const GoalOutcomeRecordingInput& input) {
          asked_.push_back(described(input));
          if (storesAtOnce_) screen_.show(view());
        });
  }

  static const std::string& bytes(int reference) {
    return references[static_cast<std::size_t>(reference)].bytes;
  }

  void tell(const std::string& event) {
    ++counts[event];
    log_ << "  " << event << '\n';
  }

  void step() {
    const std::vector<model::Subject> subjects = model_.subjects();
    if (subjects.empty() || oneIn(5)) {
      tell("snapshot");
      change();
      model_.show(world_);
      screen_.show(view());
      return;
    }
    const std::size_t index = below(subjects.size());
    const model::Subject& subject = subjects[index];
    if (oneIn(8)) return leave(index, subject);
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
    const ui::NodeID row = controls(screen_).at(index)->parent;
    const std::vector<ui::NodeID>& elements = screen_.tree().find(row)->children;
    const auto& evidenceID = model_.world().people.at(index).evidenceID;
    if (evidenceID && oneIn(2)) {
      tell("evidence");
      expected_.push_back("evidence " + inQuotes(evidenceID));
      screen_.graph().deliver(elements.at(2), ui::Press{});
      return;
    }
    tell("open");
    expected_.push_back("open " + inQuotes(bytes(*subject.reference)));
    screen_.graph().deliver(elements.front(), ui::Press{});
  }

  void edit(std::size_t index, const model::Subject& subject) {
    const std::string prefix = subject.prefix + ".outcome.";
    switch (below(6)) {
      case 0:
      case 1: {
        tell("choose");
        const std::size_t value = oneIn(3) ? model::somethingElse : below(8);
        model_.choose(subject, static_cast<int>(value));
        act(index, prefix + "picker", ui::Select{ui::Tag(allGoalOutcomeValues[value])});
        break;
      }
      case 2: {
        tell("write");
        const model::Note& note = notes[below(notes.size())];
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
    storesAtOnce_ = oneIn(2);
    tell(storesAtOnce_ ? "save, stored at once" : "save, never stored");
    const model::Form form = model_.form(subject);
    const model::Record* corrected = model_.inForce(subject);
    model::Record record{
        "r" + std::to_string(++lastID_), subject.isPath, subject.reference, form.value,
        model_.sent(form.note),          std::nullopt};
    if (corrected) record.correctsID = corrected->id;
    expected_.push_back(model_.save(subject));
    if (storesAtOnce_) world_.records.push_back(record);
    act(index, identifier, ui::Press{});
    if (storesAtOnce_) model_.show(world_);
  }

  /// Acts on the element of that identifier inside the control at `index`.
  void act(std::size_t index, const std::string& identifier, ui::Event event,
           ui::Delivery wanted = ui::Delivery::acted) {
    std::vector<ui::NodeID> pending{controls(screen_).at(index)->id};
    while (!pending.empty()) {
      const auto& node = *screen_.tree().find(pending.back());
      pending.pop_back();
      if (node.element.accessibilityIdentifier() == identifier) {
        const ui::Delivery delivery = screen_.graph().deliver(node.id, std::move(event));
        if (delivery != wanted) problem_ = "another delivery at " + identifier;
        return;
      }
      pending.insert(pending.end(), node.children.begin(), node.children.end());
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

  /// What the controls remember, also while they do not show it.
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

  std::mt19937_64 random_;
  std::ostringstream log_;
  model::World world_;
  model::Screen model_;
  int lastID_ = 0;
  bool storesAtOnce_ = false;
  std::vector<std::string> asked_;
  std::vector<std::string> expected_;
  std::string problem_;
  testing::Screen screen_;
};

class ScreenModel : public ::testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(Share, ScreenModel, ::testing::Range(0, shares));

TEST_P(ScreenModel, agreesWithTheScreenUnderRandomEvents) {
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
    EXPECT_GE(counts[event], 100) << event << " hardly ever happened";
  }
}

}  // namespace
}  // namespace vemra::screentest
