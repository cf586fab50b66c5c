#include "VemraTesting/Outline.hpp"
#include "VemraTesting/Screen.hpp"
#include "tests/ExpectedFile.hpp"
#include "tests/VemraTesting/Questionnaire.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::testing {

namespace {

using namespace sample;

class German final : public ui::StringsTable {
 public:
  std::optional<std::string> lookup(std::string_view key) const override {
    if (key == "How are you?") return "Wie geht es?";
    if (key == "Send") return "";
    return std::nullopt;
  }
};

}  // namespace

TEST(OutlineTest, IsStableTextForEveryKindAndModifier) {
  Screen screen(questionnaires([](const std::string&) {}));
  screen.type("ask.Ben.note", "line\r\nbreak");
  expectAsInFile(screen.outline(), "outline.txt");
}

TEST(OutlineTest, DistinguishesKeysFromTheirTranslations) {
  ui::Environment environment;
  environment.strings = std::make_shared<German>();
  Screen screen(questionnaires([](const std::string&) {}), environment);
  screen.type("ask.Ada.note", "x");
  screen.press("ask.Ada.send");
  expectAsInFile(screen.outline(), "outline-german.txt");
}

TEST(OutlineTest, OfAGraphThatDescribesRowByRowIsThatOfAScreen) {
  std::vector<std::string> groups;
  for (int i = 0; i < 200; ++i) groups.push_back("group " + std::to_string(i));
  // Lists in the rows of a list, more rows than a graph keeps described at once, and pickers.
  const ui::View lists = ui::ForEach(
      std::move(groups), [](const std::string& id) -> const std::string& { return id; },
      [](const std::string&) {
        return ui::VStack(
            ui::HorizontalAlignment::leading, 2,
            {questionnaires([](const std::string&) {}), ui::Text(ui::verbatim("end"))});
      });
  const Screen screen(lists);
  ui::ViewGraph graph;
  EXPECT_EQ(outline(graph), "");
  graph.setRoot(lists);
  EXPECT_EQ(outline(graph), screen.outline());
  EXPECT_EQ(outline(graph), screen.outline()) << "again";
}

TEST(OutlineTest, OfAGraphKeepsNoRows) {
  std::vector<std::string> ids;
  for (int i = 0; i < 5'000; ++i) ids.push_back(std::to_string(i));
  ui::ViewGraph graph;
  graph.setRoot(ui::ForEach(
      std::move(ids), [](const std::string& id) -> const std::string& { return id; },
      [](const std::string& id) { return ui::Text(ui::verbatim(id)); }));
  EXPECT_NE(outline(graph).find("Text \"4999\""), std::string::npos);
  const auto described = graph.work().rows;
  EXPECT_EQ(described, 5'000u);
  graph.peekRow(graph.root()->id, 0);
  EXPECT_EQ(graph.work().rows, described + 1) << "the first row has been dropped";
}

TEST(OutlineTest, HasOneLineForEachElementWhateverItsTextContains) {
  const auto line = [](std::string text) {
    return outlineLine(ui::Element(ui::Text(ui::verbatim(std::move(text))), {}, {}));
  };
  EXPECT_EQ(line(std::string("a\0b\n\r\t\v\"\\\x1f\x7f", 11)),
            R"(Text "a\x00b\n\r\t\x0b\"\\\x1f\x7f")");
  EXPECT_EQ(line("\u0085\u2028\u2029"), R"(Text "\u0085\u2028\u2029")") << "these end a line";
  EXPECT_EQ(line("\xC2\x80\xC2\x9B\xC2\x9F"), R"(Text "\u0080\u009b\u009f")");
  EXPECT_EQ(line("\u061C\u200E\u200F"), R"(Text "\u061c\u200e\u200f")") << "these turn it";
  EXPECT_EQ(line("\u202A\u202B\u202C\u202D\u202E"), R"(Text "\u202a\u202b\u202c\u202d\u202e")");
  EXPECT_EQ(line("\u2066\u2067\u2068\u2069"), R"(Text "\u2066\u2067\u2068\u2069")");
}

TEST(OutlineTest, OtherTextIsUnchanged) {
  // The neighbours of escaped characters, a letter in two forms, and ill-formed bytes.
  const std::string text =
      "\u00A0\u061B\u061D\u200D\u2010\u2027\u202F\u2065\u206A\u00E9e\u0301\U0001F600 \x80\xC2 "
      "\xE2\x80";
  EXPECT_EQ(outlineLine(ui::Element(ui::Text(ui::verbatim(text)), {}, {})), "Text \"" + text + '"');
}

}  // namespace vemra::testing
