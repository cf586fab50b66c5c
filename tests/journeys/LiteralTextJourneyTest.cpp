// Texts from outside, shown and passed on unchanged.

#include "tests/VemraGoalSurface/Shape.hpp"
#include "tests/journeys/MemoryHost.hpp"

#include <gmock/gmock.h>

namespace vemra::screentest {
namespace {

using testing::byText;
using ::testing::ElementsAre;

std::string longText() {
  std::string text;
  while (text.size() < 100'000) text += "A line of a hundred thousand, é & <b>.\n";
  return text + "the end";
}

struct Sample {
  const char* name;
  std::string text;  // no blanks at either end, so that saving changes nothing
};

class LiteralText : public ::testing::TestWithParam<Sample> {
 protected:
  const std::string text = GetParam().text;
};

INSTANTIATE_TEST_SUITE_P(
    Sample, LiteralText,
    ::testing::Values(Sample{"markup", "<b>bold</b> <script>x</script> **x** [a](b)"},
                      Sample{"ampersands", "&Save && &amp; A&B"},
                      Sample{"lineBreaks", "one\ntwo\r\nthree\u2028four\tfive"},
                      Sample{"rightToLeft", "\u202eשלום עולם\u202c مرحبا"},
                      Sample{"emoji", "👩‍👩‍👧‍👦 🇩🇪 💡"},
                      Sample{"combiningMarks", "Z\u0351\u036b\u0343a\u0301"},
                      Sample{"formats", "%s %1 {0} \\n $x"},
                      Sample{"nullByte", std::string("a\0b", 3)},
                      Sample{"illFormed", "a\xC3 b\xFF."}, Sample{"long", longText()}),
    [](const auto& sample) { return sample.param.name; });

TEST_P(LiteralText, OfNamesTitlesReasonsAndSourcesIsShownUnchanged) {
  Result result = ordinaryResult();
  result.goal.title = text;
  result.people = {person("p1", text)};
  result.paths = {path({"p9"}, GoalWhyDTO::evidence(text, text, "r"))};
  result.coverage.sources = {text, text};
  MemoryHost host{result};
  EXPECT_TRUE(host.screen.has(byText(text)));
  EXPECT_TRUE(host.screen.has(byText(text + ": " + text)));
  EXPECT_TRUE(
      host.screen.has(byText("Based on 12 piece(s) of evidence from " + text + ", " + text + ".")));
  host.screen.press(testing::button(text));
  EXPECT_THAT(host.log, ElementsAre("open \"p1\""));
}

TEST_P(LiteralText, OfAReferenceIsInIdentifiersAndCallbacks) {
  Result result = ordinaryResult();
  result.people = {person(text, "Ada", {text})};
  result.paths = {path({text})};
  MemoryHost host{result};
  host.screen.press(testing::button("Ada"));
  host.screen.press("vemra.goal.person." + text + ".show-source");
  personControl(host, text).recordOutcome();
  personControl(host, text).save();
  pathControl(host).recordOutcome();
  pathControl(host).save();
  const std::string shown = '"' + text + '"';
  EXPECT_THAT(host.log, ElementsAre("open " + shown, "evidence " + shown,
                                    "person " + shown + " wasUseful note=nil corrects=nil",
                                    "path " + shown + " wasUseful note=nil corrects=nil"));
}

TEST_P(LiteralText, OfANoteStaysTheSameAfterTypingCorrectAndSave) {
  MemoryHost host{ordinaryResult()};
  ControlOnScreen ada = personControl(host, "p1");
  ada.recordOutcome();
  ada.write(text);
  EXPECT_EQ(ada.note(), text);
  ada.save();
  EXPECT_TRUE(host.screen.has(byText(text)));
  ada.correct();
  EXPECT_EQ(ada.note(), text);
  ada.save();
  const std::string note = " note=\"" + text + '"';
  EXPECT_THAT(host.log, ElementsAre("person \"p1\" wasUseful" + note + " corrects=nil",
                                    "person \"p1\" wasUseful" + note + " corrects=\"o1\""));
}

TEST_P(LiteralText, OfAStoredNoteIsPrefilledAndSentUnchangedWhenNotEdited) {
  Result result = ordinaryResult();
  result.outcomes = {outcome("o1", SubjectKind::path, "p9", Value::somethingElse, text)};
  MemoryHost host{result};
  pathControl(host).correct();
  EXPECT_EQ(pathControl(host).note(), text);
  pathControl(host).save();
  EXPECT_THAT(host.log,
              ElementsAre("path \"p9\" somethingElse note=\"" + text + "\" corrects=\"o1\""));
}

TEST(StoredNoteWithBlanksAround, IsShownAndPrefilledAsStoredAndSentTrimmed) {
  Result result = ordinaryResult();
  result.outcomes = {outcome("o1", SubjectKind::path, "p9", Value::helped, "  met \n")};
  MemoryHost host{result};
  EXPECT_TRUE(host.screen.has(byText("  met \n")));
  pathControl(host).correct();
  EXPECT_EQ(pathControl(host).note(), "  met \n");
  pathControl(host).save();
  EXPECT_THAT(host.log, ElementsAre("path \"p9\" helped note=\"met\" corrects=\"o1\""));
}

}  // namespace
}  // namespace vemra::screentest
