#include "VemraGoalSurface/GoalOutcomeRecordingControl.hpp"

#include "VemraPlatform/task/MainActor.hpp"

#include <span>

namespace vemra {

using namespace ui;
using task::MainActor;
using Control = GoalOutcomeRecordingControl;
namespace Form = GoalOutcomeRecordingFormLogic;

namespace {

void beginEditing(const LocalState<Control::State>& state,
                  const std::optional<GoalOutcomeDTO>& outcome) {
  state.update([&](Control::State& next) {
    const auto [value, note] = Form::initialFormValues(outcome);
    next = {.isEditing = true, .selectedValue = value, .noteText = note};
  });
}

}  // namespace

View Control::body(const LocalState<State>& state) const {
  MainActor::assertIsolated("GoalOutcomeRecordingControl.body");
  return If(state->isEditing,
            [&] { return VStack(HorizontalAlignment::leading, 6, editor(state)); })
      .elseIf(effectiveOutcome.has_value(),
              [&] {
                return VStack(HorizontalAlignment::leading, 2,
                              recordedSummary(*effectiveOutcome, state));
              })
      .otherwise([&] {
        return Button("Record outcome",
                      [state] {
                        MainActor::assertIsolated("GoalOutcomeRecordingControl.recordOutcome");
                        beginEditing(state, std::nullopt);
                      })
            .font(Font::caption)
            .accessibilityIdentifier(identifierPrefix + ".outcome.start");
      });
}

Children Control::recordedSummary(const GoalOutcomeDTO& outcome,
                                  const LocalState<State>& state) const {
  MainActor::assertIsolated("GoalOutcomeRecordingControl.recordedSummary");
  return {
      HStack(VerticalAlignment::center, 8,
             {
                 Text(verbatim(Form::label(outcome.value)))
                     .font(Font::caption)
                     .foregroundStyle(ForegroundStyle::secondary),
                 If(outcome.correctsOutcomeID.has_value(),
                    [&] {
                      return Text("\u00B7 corrected")
                          .font(Font::caption2)
                          .foregroundStyle(ForegroundStyle::tertiary)
                          .accessibilityIdentifier(identifierPrefix + ".outcome.corrected-marker");
                    }),
                 Button("Correct",
                        [state, outcome] {
                          MainActor::assertIsolated("GoalOutcomeRecordingControl.correct");
                          beginEditing(state, outcome);
                        })
                     .font(Font::caption)
                     .accessibilityIdentifier(identifierPrefix + ".outcome.correct"),
             }),
      If(outcome.note.has_value() && !outcome.note->empty(),
         [&] {
           return Text(verbatim(*outcome.note))
               .font(Font::caption)
               .foregroundStyle(ForegroundStyle::secondary);
         }),
  };
}

Children Control::editor(const LocalState<State>& state) const {
  MainActor::assertIsolated("GoalOutcomeRecordingControl.editor");
  return {
      Picker("Outcome", state.binding(&State::selectedValue),
             {ForEach(
                 std::span(allGoalOutcomeValues),
                 [](const GoalOutcomeValue& value) { return caseName(value); },
                 [](GoalOutcomeValue value) {
                   return Text(verbatim(Form::label(value))).tag(value);
                 })})
          .labelsHidden()
          .pickerStyle(PickerStyle::menu)
          .accessibilityIdentifier(identifierPrefix + ".outcome.picker"),

      TextField("Note (optional)", state.binding(&State::noteText))
          .textFieldStyle(TextFieldStyle::roundedBorder)
          .accessibilityIdentifier(identifierPrefix + ".outcome.note"),

      HStack(VerticalAlignment::center, 12,
             {
                 Button("Save", [control = *this, state] { control.save(state); })
                     .disabled(!Form::canSave(state->selectedValue, state->noteText))
                     .accessibilityIdentifier(identifierPrefix + ".outcome.save"),
                 Button("Cancel",
                        [state] {
                          MainActor::assertIsolated("GoalOutcomeRecordingControl.cancel");
                          state.set(&State::isEditing, false);
                        })
                     .accessibilityIdentifier(identifierPrefix + ".outcome.cancel"),
             })
          .font(Font::caption),
  };
}

void Control::save(const LocalState<State>& state) const {
  MainActor::assertIsolated("GoalOutcomeRecordingControl.save");
  if (onRecord && *onRecord) {
    (*onRecord)(Form::recordingInput(subjectKind, subjectRef, state->selectedValue, state->noteText,
                                     effectiveOutcome));
  }
  state.set(&State::isEditing, false);
}

Properties Control::properties(const State& state) const {
  const auto optional = [](const std::optional<std::string>& text) {
    return text ? Property::Value(*text) : Property::Value();
  };
  return {
      {"subjectKind", std::string(caseName(subjectKind))},
      {"subjectRef", optional(subjectRef)},
      {"effectiveOutcome",
       effectiveOutcome ? Property::Value(effectiveOutcome->id) : Property::Value()},
      {"identifierPrefix", identifierPrefix},
      {"state", Properties{{"isEditing", state.isEditing},
                           {"selectedValue", std::string(caseName(state.selectedValue))},
                           {"noteText", state.noteText}}},
  };
}

}  // namespace vemra
