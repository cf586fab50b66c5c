#include "VemraTesting/Outline.hpp"
#include "VemraTesting/Screen.hpp"
#include "tests/VemraTesting/Questionnaire.hpp"

#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace vemra::testing {

namespace {

using namespace sample;

/// Holds a text against the file of that name in tests/expected, or with VEMRA_UPDATE_EXPECTED=1 in
/// the environment writes the file.
void expectAsInFile(const std::string& actual, const std::string& name) {
  const std::string path = std::string(VEMRA_REPOSITORY) + "/tests/expected/" + name;
  const char* update = std::getenv("VEMRA_UPDATE_EXPECTED");
  if (update && std::string_view(update) == "1") {
    std::ofstream(path, std::ios::binary) << actual;
    return;
  }
  std::ifstream file(path, std::ios::binary);
  ASSERT_TRUE(file) << path << " is not there; VEMRA_UPDATE_EXPECTED=1 writes it";
  std::stringstream expected;
  expected << file.rdbuf();
  EXPECT_EQ(actual, expected.str()) << path << "; VEMRA_UPDATE_EXPECTED=1 rewrites it";
}

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

TEST(OutlineTest, TellsKeysFromTheirTranslations) {
  ui::Environment environment;
  environment.strings = std::make_shared<German>();
  Screen screen(questionnaires([](const std::string&) {}), environment);
  screen.type("ask.Ada.note", "x");
  screen.press("ask.Ada.send");
  expectAsInFile(screen.outline(), "outline-german.txt");
}

TEST(OutlineTest, OneLineAnElementWhateverItsTextHolds) {
  const ui::View view = ui::Text(ui::verbatim(std::string("a\0b\n\r\t\v\"\\\x1f\x7f", 11)));
  EXPECT_EQ(outlineLine(ui::Element(view, {}, {})), R"(Text "a\x00b\n\r\t\x0b\"\\\x1f\x7f")");
}

}  // namespace vemra::testing
