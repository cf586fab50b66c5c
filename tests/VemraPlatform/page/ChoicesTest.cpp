#include "VemraPlatform/page/Choices.hpp"
#include "VemraPlatform/ui/View.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"
#include "VemraTesting/RenderedTree.hpp"
#include "tests/VemraTesting/Questionnaire.hpp"

#include <gtest/gtest.h>

namespace vemra::page {
namespace {

using testing::sample::Mood;
using ui::Binding;
using ui::Picker;
using ui::Text;
using ui::verbatim;

class Choices : public ::testing::Test {
 protected:
  const Node& picker(Mood selected, ui::Children rows) {
    graph_.attach(tree_);
    graph_.setRoot(Picker("Mood", Binding<Mood>([selected] { return selected; }, [](Mood) {}),
                          std::move(rows)));
    return *tree_.root();
  }

  testing::RenderedTree tree_;
  ui::ViewGraph graph_;
};

TEST_F(Choices, AreTheTaggedRowsInTreeOrder) {
  const auto choices = choicesOf(
      picker(Mood::bad, {Text(verbatim("Good")).tag(Mood::good), Text(verbatim("Not to be chosen")),
                         ui::Group({Text(verbatim("Bad")).tag(Mood::bad)})}));
  ASSERT_EQ(choices.size(), 2U);
  EXPECT_EQ(choices[0].label, "Good");
  EXPECT_EQ(choices[0].tag.name(), "good");
  EXPECT_EQ(choices[1].label, "Bad");
}

TEST_F(Choices, HaveTheFirstOfSeveralTextsInARow) {
  const auto choices =
      choicesOf(picker(Mood::bad, {ui::VStack(ui::HorizontalAlignment::leading, 0,
                                              {Text(verbatim("Bad")), Text(verbatim("and worse"))})
                                       .tag(Mood::bad)}));
  ASSERT_EQ(choices.size(), 1U);
  EXPECT_EQ(choices[0].label, "Bad");
}

TEST_F(Choices, AreTheSameForAPickerWithoutPatches) {
  const Node& patched =
      picker(Mood::bad, {ui::Group({Text(verbatim("Bad")).tag(Mood::bad)}),
                         Text(verbatim("Good")).tag(Mood::good).accessibilityIdentifier("best")});
  for (const auto& choices : {choicesOf(patched), choicesOf(*graph_.root())}) {
    ASSERT_EQ(choices.size(), 2U);
    EXPECT_EQ(choices[0].label, "Bad");
    EXPECT_EQ(choices[0].identifier, "");
    EXPECT_EQ(choices[1].label, "Good");
    EXPECT_EQ(choices[1].identifier, "best");
    EXPECT_EQ(choices[1].tag, ui::Tag(Mood::good));
  }
}

TEST_F(Choices, TheChosenChoiceHasTheTagOfTheSelection) {
  const Node& node = picker(
      Mood::fair, {Text(verbatim("Good")).tag(Mood::good), Text(verbatim("Fair")).tag(Mood::fair)});
  EXPECT_EQ(chosenAmong(choicesOf(node), node.element), 1U);
}

TEST_F(Choices, NoneIsChosenWithoutARowForTheSelection) {
  const Node& node = picker(Mood::bad, {Text(verbatim("Good")).tag(Mood::good)});
  EXPECT_EQ(chosenAmong(choicesOf(node), node.element), std::nullopt);
}

}  // namespace
}  // namespace vemra::page
