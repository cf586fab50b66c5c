#include "VemraTesting/Screen.hpp"
#include "tests/VemraTesting/Questionnaire.hpp"

#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

namespace vemra::testing {

namespace {

using namespace sample;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;
using ui::ElementKind;

class ScreenTest : public ::testing::Test {
 protected:
  /// The error's reason, "" when there is none.
  template <class Act>
  std::string reasonOf(const Act& act) {
    try {
      act();
    } catch (const ElementError& error) {
      EXPECT_THAT(error.what(), StartsWith(error.reason()));
      what = error.what();
      return error.reason();
    }
    return "";
  }

  std::vector<std::string> log;
  std::string what;
  Screen screen{questionnaires([this](std::string line) { log.push_back(std::move(line)); })};
};

}  // namespace

TEST_F(ScreenTest, TypesSelectsAndPressesAsAPersonWould) {
  EXPECT_FALSE(screen.isEnabled("ask.Ben.send"));
  screen.type("ask.Ben.note", "old");
  screen.type("ask.Ben.note", " fine\nreally ");
  EXPECT_TRUE(screen.isEnabled("ask.Ben.send")) << "the next line sees the result";
  EXPECT_EQ(screen.get("ask.Ben.note").element.text(), " fine\nreally ");
  screen.select("ask.Ben.mood", "good");
  EXPECT_EQ(screen.get("ask.Ben.mood").element.selection()->name(), "good");
  screen.submit("ask.Ben.note");
  EXPECT_THAT(log, ElementsAre()) << "Return in the note does nothing";
  screen.press("ask.Ben.send");
  EXPECT_THAT(log, ElementsAre("Ben:good: fine\nreally "));
  EXPECT_FALSE(screen.has("ask.Ben.send"));
  EXPECT_TRUE(screen.has(byText("Thanks, Ben!")));
  EXPECT_TRUE(screen.has("ask.Ada.send"));
}

TEST_F(ScreenTest, ActsOnElementsByRoleAndName) {
  screen.type(byTitle(ElementKind::textField, "Note", 1), "x");
  screen.select(byTitle(ElementKind::picker, "Mood", 1), "good");
  screen.submit(byTitle(ElementKind::textField, "Note"));
  EXPECT_FALSE(screen.isEnabled(button("Send")));
  screen.press(button("Send", 1));
  EXPECT_THAT(log, ElementsAre("Ben:good:x"));
}

TEST_F(ScreenTest, AnIndexCountsDisabledElementsToo) {
  EXPECT_EQ(screen.count(button("More")), 3U);
  EXPECT_EQ(screen.count(button("More", 7)), 3U);
  screen.press(button("More"));
  screen.press(button("More", 2));
  EXPECT_EQ(reasonOf([&] { screen.press(button("More", 1)); }),
            "button titled \"More\" is disabled");
  EXPECT_THAT(log, ElementsAre("more one", "more three"));
  EXPECT_EQ(reasonOf([&] { screen.press(button("More", 3)); }),
            "no button titled \"More\" at index 3: there are 3");
  EXPECT_EQ(reasonOf([&] { screen.press(button("Less")); }), "no button titled \"Less\"");
}

TEST_F(ScreenTest, OfEqualIdentifiersTheFirstInTreeOrderIsUsed) {
  screen.show(ui::Group({ui::Group({ui::Text("first").accessibilityIdentifier("id")}),
                         ui::Text("second").accessibilityIdentifier("id")}));
  EXPECT_EQ(screen.get("id").element.shownLabel(), "first");
  EXPECT_EQ(screen.count(byIdentifier("id")), 2U);
  EXPECT_THAT(screen.identifiers(), ElementsAre("id", "id"));
  EXPECT_EQ(screen.get(byIdentifier("id", 1)).element.shownLabel(), "second");
  EXPECT_EQ(reasonOf([&] { screen.get(byIdentifier("id", 2)); }),
            "no element with identifier \"id\" at index 2: there are 2");
  EXPECT_THAT(what, Not(HasSubstr("nearest"))) << "its spelling is right";
}

TEST_F(ScreenTest, IdentifiersAndTextsMatchByteForByte) {
  screen.show(ui::Text(ui::verbatim("\u00E9")).accessibilityIdentifier("\u00E9"));
  EXPECT_TRUE(screen.has("\u00E9"));
  EXPECT_FALSE(screen.has("e\u0301"));
  EXPECT_FALSE(screen.has(byText("e\u0301")));
  EXPECT_TRUE(screen.has(byText("\u00E9")));
  EXPECT_FALSE(screen.has(button("\u00E9"))) << "of another kind";
}

TEST_F(ScreenTest, AMissingElementIsAnErrorWithTheNearestIdentifiersAndTheTree) {
  EXPECT_EQ(reasonOf([&] { screen.press("ask.Ben.sent"); }),
            "no element with identifier \"ask.Ben.sent\"");
  EXPECT_THAT(what, HasSubstr("\nnearest: ask.Ben.send, "));
  EXPECT_THAT(what, HasSubstr("\nthe tree:\nScrollView\n"));
  EXPECT_THAT(what, HasSubstr(screen.outline()));
  EXPECT_THAT(log, ElementsAre());
}

TEST_F(ScreenTest, AReasonIsOneLineForAnySearch) {
  EXPECT_EQ(reasonOf([&] { screen.press("a\nb \"c\"\u202E"); }),
            R"(no element with identifier "a\nb \"c\"\u202e")");
  EXPECT_EQ(reasonOf([&] { screen.press(button("a\"\r\n\\")); }),
            R"(no button titled "a\"\r\n\\")");
  EXPECT_EQ(reasonOf([&] { screen.get(byText("\u2028")); }), R"(no text "\u2028")");
  EXPECT_EQ(
      reasonOf([&] { screen.select("ask.Ada.mood", "good\nbad"); }),
      R"(no choice "good\nbad" in element with identifier "ask.Ada.mood": it has "good", "fair")");
  screen.show(ui::Text("bare").accessibilityIdentifier("one\ntwo"));
  reasonOf([&] { screen.get("x"); });
  EXPECT_THAT(what, HasSubstr("\nnearest: one\\ntwo\nthe tree:\n"));
}

TEST_F(ScreenTest, NearestIdentifiersAreAtMostThreeAndMayBeNone) {
  reasonOf([&] { screen.get("ask.Ada.moot"); });
  const std::string line = what.substr(what.find("nearest:"), what.find("\nthe tree") - 41);
  EXPECT_EQ(std::count(line.begin(), line.begin() + static_cast<int>(line.find('\n')), ','), 2);
  screen.show(ui::Text("bare"));
  reasonOf([&] { screen.get("x"); });
  EXPECT_THAT(what, Not(HasSubstr("nearest")));
  reasonOf([&] { screen.get(byText("missing")); });
  EXPECT_THAT(what, StartsWith("no text \"missing\"\nthe tree:\nText key \"bare\"\n"));
}

TEST_F(ScreenTest, NearestIdentifiersHaveTheFewestBytesAddedLeftOutOrReplaced) {
  const auto nearest = [&](const std::vector<std::string>& identifiers, const std::string& sought) {
    screen.show(ui::ForEach(
        std::vector(identifiers), [](const std::string& id) -> const std::string& { return id; },
        [](const std::string& id) { return ui::Text("x").accessibilityIdentifier(id); }));
    reasonOf([&] { screen.get(sought); });
    const std::size_t from = what.find("\nnearest: ") + 10;
    return what.substr(from, what.find('\n', from) - from);
  };
  EXPECT_EQ(nearest({"sitting", "witted", "kitten.s", "mitten"}, "kitten"),
            "mitten, kitten.s, witted");
  EXPECT_EQ(nearest({"bitter", "kitten"}, "sitting"), "kitten, bitter") << "three, and four";
  EXPECT_EQ(nearest({"abxyz", "ab"}, "abc"), "ab, abxyz");
  EXPECT_EQ(nearest({"b", "a"}, "c"), "a, b") << "equally near ones in alphabetical order";
  EXPECT_EQ(nearest({"f", "abcde"}, "abcdef"), "abcde, f") << "a missing part in front counts too";

  const std::string long255(255, 'x');
  EXPECT_EQ(nearest({long255 + "a", long255 + "b"}, long255 + "bz"),
            long255 + "b, " + long255 + "a");
  const std::string long256(256, 'x');
  EXPECT_EQ(nearest({long256 + "a", long256 + "b"}, long256 + "bz"),
            long256 + "a, " + long256 + "b")
      << "only the first 256 bytes count";
  EXPECT_EQ(nearest({long256 + "b", long256 + "aaaa"}, long256), long256 + "aaaa, " + long256 + "b")
      << "of the identifiers as well";
  const std::string long250(250, 'x');
  EXPECT_EQ(nearest({long256, long250 + "aaaaaa"}, long256 + "aaaaaaaaaa"),
            long256 + ", " + long250 + "aaaaaa")
      << "and of the wanted one";
}

TEST_F(ScreenTest, LongIdentifiersAreComparedInBoundedTime) {
  const std::string longOne(1'000'000, 'x');
  screen.show(ui::Text("x").accessibilityIdentifier(longOne));
  EXPECT_FALSE(reasonOf([&] { screen.get(longOne + "y"); }).empty());
}

TEST_F(ScreenTest, AnElementOfTheWrongKindIsAnErrorAndNothingHappens) {
  EXPECT_EQ(reasonOf([&] { screen.press("ask.Ada.note"); }),
            "element with identifier \"ask.Ada.note\" is not a button");
  EXPECT_EQ(reasonOf([&] { screen.type("ask.Ada.mood", "x"); }),
            "element with identifier \"ask.Ada.mood\" is not a text field");
  EXPECT_EQ(reasonOf([&] { screen.submit("ask.Ada.mood"); }),
            "element with identifier \"ask.Ada.mood\" is not a text field");
  EXPECT_EQ(reasonOf([&] { screen.select("ask.Ada.note", "good"); }),
            "element with identifier \"ask.Ada.note\" is not a picker");
  EXPECT_EQ(
      reasonOf([&] { screen.select("ask.Ada.mood", "bad"); }),
      "no choice \"bad\" in element with identifier \"ask.Ada.mood\": it has \"good\", \"fair\"");
  EXPECT_EQ(reasonOf([&] { screen.select(byTitle(ElementKind::picker, "Mood"), "bad"); }),
            "no choice \"bad\" in Picker titled \"Mood\": it has \"good\", \"fair\"");
  EXPECT_EQ(reasonOf([&] { screen.press(byText("How are you?")); }),
            "text \"How are you?\" is not a button");
}

TEST_F(ScreenTest, ADisabledElementIsAnErrorAndNothingHappens) {
  EXPECT_EQ(reasonOf([&] { screen.press("ask.Ada.send"); }),
            "element with identifier \"ask.Ada.send\" is disabled");
  EXPECT_THAT(log, ElementsAre());
  screen.show(ui::View(Questionnaire{}).disabled(true));
  EXPECT_EQ(reasonOf([&] { screen.select("ask.Ada.mood", "good"); }),
            "element with identifier \"ask.Ada.mood\" is disabled");
  EXPECT_EQ(reasonOf([&] { screen.select("ask.Ada.mood", "bad"); }),
            "element with identifier \"ask.Ada.mood\" is disabled");
  EXPECT_EQ(reasonOf([&] { screen.type("ask.Ada.note", "x"); }),
            "element with identifier \"ask.Ada.note\" is disabled");
}

namespace {

/// Counts how often its properties are read.
struct Described {
  static constexpr std::string_view name = "Described";
  int* times;
  ui::View body() const { return ui::Button("Go", nullptr).accessibilityIdentifier("go"); }
  ui::Properties properties() const {
    ++*times;
    return {};
  }
};

}  // namespace

TEST_F(ScreenTest, AnAttemptReturnsTheReasonThatTheOtherFunctionsThrow) {
  const Query send = byIdentifier("ask.Ada.send");
  const Query note = byIdentifier("ask.Ada.note");
  const Query mood = byIdentifier("ask.Ada.mood");
  EXPECT_EQ(screen.attempt(byIdentifier("x"), ui::Press{}), "no element with identifier \"x\"");
  EXPECT_EQ(screen.attempt(send, ui::Press{}),
            "element with identifier \"ask.Ada.send\" is disabled");
  EXPECT_EQ(screen.attempt(note, ui::Press{}),
            "element with identifier \"ask.Ada.note\" is not a button");
  EXPECT_EQ(
      screen.attempt(mood, Choose{"bad"}),
      "no choice \"bad\" in element with identifier \"ask.Ada.mood\": it has \"good\", \"fair\"");
  EXPECT_EQ(screen.attempt(mood, Choose{"good"}), std::nullopt);
  EXPECT_EQ(screen.attempt(note, ui::EditText{"x"}), std::nullopt);
  EXPECT_EQ(screen.attempt(note, ui::Submit{}), std::nullopt);
  EXPECT_EQ(screen.attempt(send, ui::Press{}), std::nullopt);
  EXPECT_THAT(log, ElementsAre("Ada:good:x"));
}

TEST_F(ScreenTest, AnImpossibleAttemptDoesNotDescribeTheTree) {
  int described = 0;
  screen.show(Described{&described});
  const Query go = byIdentifier("go");
  EXPECT_TRUE(screen.attempt(byIdentifier("gone"), ui::Press{}));
  EXPECT_TRUE(screen.attempt(button("Stay"), ui::Press{}));
  EXPECT_TRUE(screen.attempt(go, ui::Submit{}));
  EXPECT_TRUE(screen.attempt(go, Choose{"x"}));
  EXPECT_EQ(described, 0);
  EXPECT_THROW(screen.press("gone"), ElementError);
  EXPECT_EQ(described, 1) << "the error of these functions shows the tree";
}

TEST_F(ScreenTest, AnActFromInsideACallbackWaitsForTheEventToEnd) {
  std::vector<std::string> order;
  screen.show(ui::Group({ui::Button("outer",
                                    [&] {
                                      screen.press(button("inner"));
                                      order.emplace_back("outer");
                                    }),
                         ui::Button("inner", [&] { order.emplace_back("inner"); })}));
  screen.press(button("outer"));
  EXPECT_THAT(order, ElementsAre("outer", "inner"));
}

TEST_F(ScreenTest, ListsTheShownTextsInTreeOrder) {
  screen.show(ui::View(Questionnaire{}));
  EXPECT_THAT(screen.shownTexts(), ElementsAre("Mood", "Good", "Fair", "Note", "Send"));
  EXPECT_THAT(screen.identifiers(), ElementsAre("ask.Ada.mood", "ask.Ada.note", "ask.Ada.send"));
}

TEST_F(ScreenTest, TakesANewRootAndAnotherEnvironment) {
  screen.type("ask.Ada.note", "kept");
  screen.show(questionnaires([](const std::string&) {}));
  EXPECT_EQ(screen.get("ask.Ada.note").element.text(), "kept");
  ui::Environment environment;
  environment.locale = "de_DE";
  screen.setEnvironment(environment);
  EXPECT_EQ(screen.graph().environment().locale, "de_DE");
  const Screen& reader = screen;
  EXPECT_TRUE(reader.graph().root());
  EXPECT_EQ(reader.find("nowhere"), nullptr);
  EXPECT_EQ(reader.tree().root()->id, reader.graph().root()->id);
}

TEST_F(ScreenTest, AnEmptyScreenHasNothing) {
  screen.show(ui::View());
  EXPECT_EQ(screen.outline(), "");
  EXPECT_FALSE(screen.has("ask.Ada.note"));
  EXPECT_TRUE(screen.shownTexts().empty());
}

TEST_F(ScreenTest, CanBeMadeLaterInAnOptional) {
  std::optional<Screen> late;
  EXPECT_FALSE(late.has_value());
  late.emplace(ui::Text("here"));
  EXPECT_THAT(late->shownTexts(), ElementsAre("here"));
}

TEST(ScreenDeathTest, MadeOffTheMainThreadStopsTheProcessAndSaysWhatToDo) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(std::thread([] { const Screen screen(ui::Text("here")); }).join(),
               "testing::Screen was called off the main thread.*MainActor::adoptCurrentThread");
}

}  // namespace vemra::testing
