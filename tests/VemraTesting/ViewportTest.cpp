#include "VemraPlatform/ui/View.hpp"
#include "VemraTesting/Viewport.hpp"
#include "tests/VemraTesting/Questionnaire.hpp"

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace vemra::testing {
namespace {

using namespace ui;
using sample::Mood;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

Text line(std::string text) {
  return Text(verbatim(std::move(text)));
}

/// Rows of a name and a button, between two lines.
View list(std::size_t count, std::vector<std::string>* opened = nullptr, std::size_t first = 0) {
  std::vector<std::string> names;
  for (std::size_t i = first; i < first + count; ++i) names.push_back("P" + std::to_string(i));
  const auto itself = [](const std::string& name) -> const std::string& { return name; };
  return VStack(HorizontalAlignment::leading, 0,
                {line("People"),
                 ForEach(std::move(names), itself,
                         [opened](const std::string& name) {
                           return HStack(VerticalAlignment::center, 8,
                                         {line(name), Button(verbatim("Open"), [opened, name] {
                                                        if (opened) opened->push_back(name);
                                                      }).accessibilityIdentifier("open." + name)});
                         }),
                 line("The end")});
}

/// A picker, a field and a button that is enabled once something is typed.
struct Form {
  static constexpr std::string_view name = "Form";
  struct State {
    Mood mood = Mood::good;
    std::string note;
    friend bool operator==(const State&, const State&) = default;
  };

  View body(const LocalState<State>& state) const {
    return VStack(HorizontalAlignment::leading, 0,
                  {Picker("Mood", state.binding(&State::mood),
                          {line("Good").tag(Mood::good), line("Very bad").tag(Mood::bad)}),
                   TextField("Note", state.binding(&State::note)),
                   Button("Save", [] {}).disabled(state->note.empty())});
  }
};

TEST(Viewport, ShowsTextsAndControlsInCells) {
  const Viewport screen(
      VStack(HorizontalAlignment::leading, 20,
             {line("Goal"), Button(verbatim("Ada"), [] {}).buttonStyle(ButtonStyle::plain),
              HStack(VerticalAlignment::center, 16,
                     {Button("Save", [] {}), Button("Cancel", [] {}).disabled(true)})})
          .padding(24),
      {30, 7});
  EXPECT_EQ(screen.text(),
            "\n"
            "   Goal\n"
            "\n"
            "   <Ada>\n"
            "\n"
            "   [Save]  (Cancel)\n"
            "\n");
}

TEST(Viewport, ShowsAFormWhileItIsFilledIn) {
  Viewport screen(Form{}, {24, 3});
  EXPECT_EQ(screen.text(),
            "[Mood: Good     v]\n"
            "[Note: ________________]\n"
            "(Save)\n");
  ASSERT_TRUE(screen.tab());
  screen.choose("Very bad");
  ASSERT_TRUE(screen.tab());
  screen.type("met ");
  screen.type("Ada");
  ASSERT_TRUE(screen.tab());
  EXPECT_EQ(screen.text(),
            "[Mood: Very bad v]\n"
            "[Note: met Ada_________]\n"
            ">Save<\n");
  ASSERT_TRUE(screen.backTab());
  screen.clear();
  EXPECT_EQ(screen.text(),
            "[Mood: Very bad v]\n"
            ">Note: ________________<\n"
            "(Save)\n");
}

TEST(Viewport, ReturnSubmitsTheFocusedField) {
  std::string text;
  std::vector<std::string> submitted;
  Viewport screen(TextField("Name", Binding<std::string>([&] { return text; },
                                                         [&](std::string typed) { text = typed; }))
                      .onSubmit([&] { submitted.push_back(text); }),
                  {24, 2});
  EXPECT_THROW(screen.submit(), ElementError) << "without the focus";
  ASSERT_TRUE(screen.tab());
  screen.type("Ada");
  screen.submit();
  EXPECT_THAT(submitted, ElementsAre("Ada"));
}

TEST(Viewport, APickerShowsItsTitleUnlessItIsHidden) {
  const View picker = Picker("Mood", Binding<Mood>([] { return Mood::good; }, [](Mood) {}),
                             {line("Good").tag(Mood::good), line("Very bad").tag(Mood::bad)});
  const auto shown = [](const View& view, int width) { return Viewport(view, {width, 1}).text(); };
  EXPECT_EQ(shown(picker, 30), "[Mood: Good     v]\n");
  EXPECT_EQ(shown(picker.labelsHidden(), 30), "[Good     v]\n");
  EXPECT_EQ(shown(picker, 15), "[Mood: Good  v]\n");
  EXPECT_EQ(shown(picker, 12), "[Good     v]\n") << "a choice needs half the room";
}

TEST(Viewport, AFieldAndAButtonStandInOneLine) {
  const View row = HStack(VerticalAlignment::center, 8,
                          {TextField("Name", Binding<std::string>([] { return std::string("Ada"); },
                                                                  [](const std::string&) {})),
                           Button("Keep", [] {})});
  EXPECT_EQ(Viewport(row, {30, 1}).text(), "[Name: Ada____________] [Keep]\n");
}

TEST(Viewport, AFieldShowsTheEndOfALongText) {
  Viewport screen(Form{}, {24, 3});
  screen.tab();
  screen.tab();
  screen.type("they met at the fair");
  EXPECT_THAT(screen.text(), HasSubstr(">Note: met at the fair_<\n"));
}

TEST(Viewport, BreaksTextsAtItsWidth) {
  Viewport screen(VStack(HorizontalAlignment::leading, 0,
                         {line("Connected through a friend"), Button("Record outcome", [] {})}),
                  {12, 5});
  EXPECT_EQ(screen.text(),
            "Connected\n"
            "through a\n"
            "friend\n"
            "[Record\n"
            " outcome]\n");
  screen.resize({26, 2});
  EXPECT_EQ(screen.text(),
            "Connected through a friend\n"
            "[Record outcome]\n");
}

TEST(Viewport, WideCharactersAndMarksKeepTheColumnsStraight) {
  const Viewport screen(
      VStack(HorizontalAlignment::leading, 0,
             {HStack(VerticalAlignment::center, 8, {line("田中"), line("|")}),
              HStack(VerticalAlignment::center, 8, {line("e\u0301tas"), line("|")})}),
      {9, 2});
  EXPECT_EQ(screen.text(),
            "田中 |\n"
            "e\u0301tas |\n");
}

TEST(Viewport, ARightToLeftPageIsMirrored) {
  Environment environment;
  environment.layoutDirection = LayoutDirection::rightToLeft;
  const Viewport screen(
      VStack(HorizontalAlignment::leading, 0,
             {line("שלום"), HStack(VerticalAlignment::center, 8, {line("a"), Button("OK", [] {})})})
          .padding(Edges::horizontal, 16),
      {12, 2}, environment);
  EXPECT_EQ(screen.text(),
            "      שלום\n"
            "    [OK] a\n");
}

TEST(Viewport, AnActionMaySetTheEnvironment) {
  std::function<void()> turn;
  Viewport screen(Button("Turn", [&] { turn(); }), {12, 1});
  turn = [&] {
    Environment environment;
    environment.layoutDirection = LayoutDirection::rightToLeft;
    screen.setEnvironment(environment);
  };
  screen.tab();
  screen.press();
  EXPECT_EQ(screen.text(), "      >Turn<\n");
}

TEST(Viewport, LinesBeginAtTheRightEdgeOfARightToLeftPage) {
  Environment environment;
  environment.layoutDirection = LayoutDirection::rightToLeft;
  const Viewport screen(line("one and two"), {8, 2}, environment);
  EXPECT_EQ(screen.text(),
            " one and\n"
            "     two\n");
}

TEST(Viewport, CharactersWithoutAColumnAreInThePreviousCell) {
  const Viewport screen(HStack(VerticalAlignment::center, 8, {line("a\u200Bb"), line("|")}),
                        {9, 1});
  EXPECT_EQ(screen.text(), "a\u200Bb |\n");
  EXPECT_EQ(Viewport(line("\u200Ba"), {2, 1}).text(), "a\n")
      << "there is none before the first one";
}

TEST(Viewport, EndShowsTheEndWhateverTheHeightOfTheLastRows) {
  std::vector<std::string> texts;
  for (int i = 0; i < 100; ++i) {
    texts.push_back(std::to_string(i) + (i < 60 ? "" : " with many words that take many lines"));
  }
  const auto itself = [](const std::string& text) -> const std::string& { return text; };
  Viewport screen(
      VStack(HorizontalAlignment::leading, 0,
             {ForEach(std::move(texts), itself, [](const std::string& text) { return line(text); }),
              line("The end")}),
      {10, 4});
  screen.end();
  EXPECT_THAT(screen.text(), HasSubstr("The end\n"));
  EXPECT_EQ(screen.position(), screen.length() - 4);
}

TEST(Viewport, TerminalCommandsInATextAreEscaped) {
  const Viewport screen(line("\x1b[2Jgone"), {20, 1});
  EXPECT_EQ(screen.text(), "\\x1b[2Jgone\n");
}

TEST(Viewport, ScrollsByLinesAndPagesUpToItsEnds) {
  Viewport screen(list(20), {20, 4});
  EXPECT_EQ(screen.text(), "People\nP0 [Open]\nP1 [Open]\nP2 [Open]\n");
  screen.wheel(1);
  EXPECT_EQ(screen.text(), "P0 [Open]\nP1 [Open]\nP2 [Open]\nP3 [Open]\n");
  screen.pageDown();
  EXPECT_EQ(screen.text(), "P3 [Open]\nP4 [Open]\nP5 [Open]\nP6 [Open]\n") << "one line in common";
  screen.end();
  EXPECT_EQ(screen.text(), "P17 [Open]\nP18 [Open]\nP19 [Open]\nThe end\n");
  screen.wheel(1);
  EXPECT_EQ(screen.position(), screen.length() - 4) << "no further";
  screen.pageUp();
  EXPECT_THAT(screen.text(), HasSubstr("P17 [Open]\n"));
  screen.home();
  EXPECT_EQ(screen.position(), 0);
  screen.wheel(-1);
  EXPECT_EQ(screen.position(), 0);
}

TEST(Viewport, DescribesOnlyTheRowsNearby) {
  Viewport screen(list(100'000), {20, 10});
  screen.end();
  EXPECT_THAT(screen.text(), HasSubstr("P99999 [Open]\nThe end\n"));
  EXPECT_LT(screen.graph().work().rows, 200U);
}

TEST(Viewport, TabGoesThroughRowsWithoutNodesAndScrollsThemIn) {
  std::vector<std::string> opened;
  Viewport screen(list(60, &opened), {20, 4});
  for (int i = 0; i < 60; ++i) {
    ASSERT_TRUE(screen.tab()) << i;
    EXPECT_THAT(screen.text(), HasSubstr("P" + std::to_string(i) + " >Open<\n"));
    screen.press();
  }
  EXPECT_FALSE(screen.tab()) << "that was the last control";
  ASSERT_EQ(opened.size(), 60U);
  EXPECT_EQ(opened.front(), "P0");
  EXPECT_EQ(opened.back(), "P59");
}

TEST(Viewport, BackTabBeginsAtTheEnd) {
  Viewport screen(list(60), {20, 4});
  ASSERT_TRUE(screen.backTab());
  EXPECT_THAT(screen.text(), HasSubstr("P59 >Open<\n"));
}

TEST(Viewport, AKeyScrollsTheFocusedControlIntoViewBeforeItActs) {
  std::vector<std::string> opened;
  Viewport screen(list(60, &opened), {20, 4});
  screen.tab();
  screen.end();
  EXPECT_THAT(screen.text(), Not(HasSubstr(">")));
  screen.press();
  EXPECT_THAT(screen.text(), HasSubstr("P0 >Open<\n"));
  EXPECT_THAT(opened, ElementsAre("P0"));
}

TEST(Viewport, ClicksOnlyButtonsInView) {
  std::vector<std::string> opened;
  Viewport screen(list(60, &opened), {20, 4});
  screen.click("open.P1");
  EXPECT_THAT(opened, ElementsAre("P1"));
  EXPECT_THAT(screen.text(), HasSubstr("P1 >Open<\n")) << "it has the focus";
  EXPECT_THROW(screen.click("open.P3"), ElementError) << "below the last line";
  screen.wheel(1);
  screen.click("open.P3");
  EXPECT_THAT(opened, ElementsAre("P1", "P3"));
}

TEST(Viewport, ReportsWhyAKeyCannotAct) {
  Viewport screen(Form{}, {24, 3});
  EXPECT_THROW(screen.press(), ElementError) << "nothing has the focus";
  screen.tab();
  EXPECT_THROW(screen.type("x"), ElementError) << "a picker has it";
  const auto expectError = [](const auto& act, const char* reason) {
    try {
      act();
      FAIL() << "expected: " << reason;
    } catch (const ElementError& error) {
      EXPECT_EQ(error.reason(), reason);
      EXPECT_THAT(error.what(), HasSubstr(">Mood: Good     v<")) << "and shows the screen";
    }
  };
  expectError([&] { screen.choose("Splendid"); },
              R"(no choice "Splendid": there are "Good", "Very bad")");
  expectError([&] { screen.press(); }, "the focus is not on a button");
  EXPECT_THROW(screen.click(button("Save")), ElementError) << "it is disabled";
}

TEST(Viewport, AKeyRethrowsTheExceptionOfItsAction) {
  Viewport screen(Button("Fail", [] { throw std::runtime_error("no"); }), {20, 1});
  screen.tab();
  EXPECT_THROW(screen.press(), std::runtime_error);
  EXPECT_EQ(screen.text(), ">Fail<\n") << "the screen still works";
}

TEST(Viewport, HasAtLeastOneCell) {
  const Viewport screen(line("Ada"), {0, -3});
  EXPECT_EQ(screen.text(), "A\n");
}

}  // namespace
}  // namespace vemra::testing
