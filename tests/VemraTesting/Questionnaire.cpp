#include "tests/VemraTesting/Questionnaire.hpp"

namespace vemra::testing::sample {

using namespace ui;

View Questionnaire::body(const LocalState<State>& state) const {
  const std::string prefix = "ask." + person;
  return If(state->isOpen,
            [&] {
              return VStack(
                  HorizontalAlignment::leading, 6,
                  {
                      Picker("Mood", state.binding(&State::mood),
                             {Group({Text("Good").tag(Mood::good), Text("Fair").tag(Mood::fair)})})
                          .labelsHidden()
                          .pickerStyle(PickerStyle::menu)
                          .accessibilityIdentifier(prefix + ".mood"),
                      TextField("Note", state.binding(&State::note))
                          .textFieldStyle(TextFieldStyle::roundedBorder)
                          .accessibilityIdentifier(prefix + ".note"),
                      Button("Send",
                             [onSend = onSend, state, person = person] {
                               onSend(person + ':' + std::string(caseName(state->mood)) + ':' +
                                      state->note);
                               state.set(&State::isOpen, false);
                             })
                          .disabled(state->note.empty())
                          .accessibilityIdentifier(prefix + ".send"),
                  });
            })
      .otherwise([&] {
        return Text(verbatim("Thanks, " + person + '!'))
            .foregroundStyle(ForegroundStyle::secondary);
      });
}

Properties Questionnaire::properties(const State& state) const {
  return {{"person", person},
          {"nothing", {}},
          {"isOpen", state.isOpen},
          {"inner", Properties{{"a", "\"quoted\"\n"}, {"b", false}}}};
}

View questionnaires(std::function<void(std::string)> log) {
  const auto more = [log](std::string which) {
    return Button(verbatim("More"), [log, which] { log("more " + which); });
  };
  return ScrollView({
      VStack(
          HorizontalAlignment::center, 20,
          {
              Text("How are you?").font(Font::title2).fontWeight(FontWeight::semibold),
              more("one")
                  .buttonStyle(ButtonStyle::plain)
                  .font(Font::body.weight(FontWeight::medium)),
              more("two").disabled(true),
              more("three").padding(Edges::horizontal, 3).padding(2).disabled(false),
              HStack(VerticalAlignment::top, 8,
                     {
                         ForEach(
                             std::vector<std::string>{"Ada", "Ben"},
                             [](const std::string& person) -> const std::string& { return person; },
                             [log](const std::string& person) {
                               return Questionnaire{person, log};
                             }),
                     }),
              Group({Text(verbatim("tab\there \\ \"x\"\nand \x1b[0m \x7f \u00E9"))}),
          }),
  });
}

}  // namespace vemra::testing::sample
