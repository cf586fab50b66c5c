#include "VemraGallery/Heard.hpp"
#include "apps/gallery/GoalFaces.hpp"

#include <set>

#include <gtest/gtest.h>

namespace vemra::gallery {
namespace {

/// The texts and identifiers of all goal faces.
std::set<std::string> everythingShown() {
  Gallery gallery("Goal");
  addGoalFaces(gallery);
  std::set<std::string> shown;
  for (const Specimen& specimen : gallery.specimens()) {
    if (specimen.section == "Many people") continue;
    const auto screen = mount(specimen, {});
    for (std::string& text : screen->shownTexts()) shown.insert(std::move(text));
    for (std::string& identifier : screen->identifiers()) shown.insert(std::move(identifier));
  }
  return shown;
}

TEST(GoalFaces, ShowEveryControlOfThePersonAndOfThePath) {
  const std::set<std::string> shown = everythingShown();
  const std::string person = "vemra.goal.person.p1";
  for (const char* part :
       {".show-source", ".outcome.start", ".outcome.picker", ".outcome.note", ".outcome.save",
        ".outcome.cancel", ".outcome.correct", ".outcome.corrected-marker"}) {
    EXPECT_TRUE(shown.contains(person + part)) << part;
  }
  for (const char* identifier :
       {"vemra.goal.path.see-in-starfold", "vemra.goal.path.outcome.start"}) {
    EXPECT_TRUE(shown.contains(identifier)) << identifier;
  }
}

TEST(GoalFaces, ShowEveryGap) {
  const std::set<std::string> shown = everythingShown();
  for (const char* text :
       {"No relevant people found yet.", "Nothing points to a specific person for this yet.",
        "This goal doesn't name someone to find a path to.", "No supported path to them yet."}) {
    EXPECT_TRUE(shown.contains(text)) << text;
  }
}

TEST(GoalFaces, ThePageListsOnlySomeOfTenThousandPeople) {
  Gallery gallery("Goal");
  addGoalFaces(gallery);
  const auto screen = mount(gallery.specimens().back(), {});
  const std::vector<std::string> lines = heard(screen->graph(), 50);
  ASSERT_EQ(lines.size(), 51U);
  EXPECT_EQ(lines.back().rfind("… and ", 0), 0U) << lines.back();
}

}  // namespace
}  // namespace vemra::gallery
