#include "VemraGoalSurface/GoalOutcomeRecordingControl.hpp"
#include "tests/VemraGoalSurface/SampleScreen.hpp"
#include "tests/VemraGoalSurface/Shape.hpp"

#include <memory>

#include <gmock/gmock.h>

namespace vemra::screentest {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::Screen;

const std::string amara = "vemra.goal.person.p1";
const std::string picker = amara + ".outcome.picker";
const std::string note = amara + ".outcome.note";
const std::string save = amara + ".outcome.save";
const std::string cancel = amara + ".outcome.cancel";

/// The editor of one person's control, open for a first recording.
class OutcomeEditor : public ::testing::Test {
 protected:
  OutcomeEditor() {
    result_.people = {person("p1", "Ada")};
    result_.paths = {};
  }

  Screen& openFirst() {
    screen_ = std::make_unique<Screen>(viewOf(result_, calls_));
    screen_->press(amara + ".outcome.start");
    return *screen_;
  }

  Result result_ = ordinaryResult();
  Calls calls_;
  std::unique_ptr<Screen> screen_;
};

TEST_F(OutcomeEditor, TagsEachRowWithItsCase) {
  const Screen& screen = openFirst();
  std::vector<Value> tags;
  for (const auto* node : nodesOf(screen, ui::ElementKind::text)) {
    if (const ui::Tag* tag = node->element.tag()) {
      ASSERT_NE(tag->as<Value>(), nullptr);
      tags.push_back(*tag->as<Value>());
    }
  }
  EXPECT_THAT(tags, ::testing::ElementsAreArray(allGoalOutcomeValues));
}

TEST_F(OutcomeEditor, WritesTheButtonsInTheRowsFontAndPickerAndFieldInTheirOwn) {
  const Screen& screen = openFirst();
  EXPECT_EQ(screen.get(save).element.style().font, ui::Font::caption);
  EXPECT_EQ(screen.get(cancel).element.style().font, ui::Font::caption);
  EXPECT_EQ(screen.get(picker).element.style().font, ui::Font::body);
  EXPECT_EQ(screen.get(note).element.style().font, ui::Font::body);
  EXPECT_EQ(screen.get(save).element.buttonStyle(), ui::ButtonStyle::automatic);
  EXPECT_EQ(screen.get(cancel).element.buttonStyle(), ui::ButtonStyle::automatic);
}

TEST_F(OutcomeEditor, KeepsTheHiddenTitleForAssistiveTechnology) {
  const Screen& screen = openFirst();
  EXPECT_TRUE(screen.get(picker).element.labelsHidden());
  EXPECT_EQ(screen.get(picker).element.shownLabel(), "Outcome");
}

/// Runs the actions of the buttons with that title in a view, but not of those inside composites.
void runActions(const ui::View& view, std::string_view title) {
  if (view.isAbsent()) return;
  std::visit(
      [&](const auto& content) {
        if constexpr (requires { content.action; }) {
          if (content.title.source() == title) content.action();
        } else if constexpr (requires { content.children; }) {
          for (const ui::View& child : content.children) runActions(child, title);
        }
      },
      view.description().content);
}

// Only the disabled button prevents saving: its action saves whenever it is called.
TEST(OutcomeEditorSave, SaveDoesNotCheckTheNoteAgain) {
  using Control = GoalOutcomeRecordingControl;
  struct Owner final : ui::StateCell::Owner {
    void stateChanged(ui::StateCell&) override {}
  } owner;
  const auto cell = std::make_shared<ui::StateCellOf<Control::State>>();
  cell->attach(owner, 1);
  const ui::LocalState<Control::State> state(cell);
  state.set(&Control::State::isEditing, true);
  state.set(&Control::State::selectedValue, Value::somethingElse);
  state.set(&Control::State::noteText, " ");
  std::vector<GoalOutcomeRecordingInput> recorded;
  const Control control{
      .subjectKind = SubjectKind::person,
      .subjectRef = "p1",
      .effectiveOutcome = std::nullopt,
      .identifierPrefix = "x",
      .onRecord = std::make_shared<const std::function<void(const GoalOutcomeRecordingInput&)>>(
          [&](const GoalOutcomeRecordingInput& input) { recorded.push_back(input); })};
  runActions(control.body(state), "Save");
  ASSERT_EQ(recorded.size(), 1U);
  EXPECT_EQ(recorded[0].outcome(), Value::somethingElse);
  EXPECT_EQ(recorded[0].note(), std::nullopt);
  EXPECT_FALSE(state->isEditing) << "the editor closes";
}

TEST_F(OutcomeEditor, SavesEveryOtherValueWithAnEmptyNote) {
  for (Value value : allGoalOutcomeValues) {
    if (value == Value::somethingElse) continue;
    calls_.log.clear();
    Screen& screen = openFirst();
    screen.select(picker, caseName(value));
    ASSERT_TRUE(screen.isEnabled(save)) << caseName(value);
    screen.press(save);
    EXPECT_THAT(calls_.log, ElementsAre("record person \"p1\" " + std::string(caseName(value)) +
                                        " note=nil corrects=nil"));
  }
}

TEST_F(OutcomeEditor, UpdatesSaveWithPickerAndNote) {
  Screen& screen = openFirst();
  screen.type(note, " ");
  EXPECT_TRUE(screen.isEnabled(save));
  screen.select(picker, "somethingElse");
  EXPECT_FALSE(screen.isEnabled(save));
  EXPECT_THAT(face(screen), ::testing::Contains(HasSubstr("\"Save\" .disabled(true)")));
  screen.type(note, " a");
  EXPECT_TRUE(screen.isEnabled(save));
  screen.type(note, "");
  EXPECT_FALSE(screen.isEnabled(save));
  screen.select(picker, "invited");
  EXPECT_TRUE(screen.isEnabled(save));
}

TEST_F(OutcomeEditor, SaveCallsTheHostBeforeTheEditorCloses) {
  std::string duringTheCall = "not called";
  Screen* shown = nullptr;
  GoalResultView view(GoalResultSnapshotV1(result_), {}, {}, {},
                      [&](const GoalOutcomeRecordingInput&) { duringTheCall = shown->outline(); });
  Screen screen(view);
  shown = &screen;
  screen.press(amara + ".outcome.start");
  screen.press(save);
  EXPECT_THAT(duringTheCall, HasSubstr("state={isEditing=true"));
  EXPECT_THAT(screen.outline(), HasSubstr("state={isEditing=false"));
}

}  // namespace
}  // namespace vemra::screentest
