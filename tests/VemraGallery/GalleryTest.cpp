#include "VemraGallery/Gallery.hpp"

#include <stdexcept>

#include <gtest/gtest.h>

namespace vemra::gallery {
namespace {

std::vector<std::string> names(const Gallery& gallery) {
  std::vector<std::string> names;
  for (const Specimen& specimen : gallery.specimens()) names.push_back(specimen.name);
  return names;
}

TEST(Gallery, KeepsTheSpecimensOfASectionTogether) {
  Gallery gallery("Test");
  gallery.add({"First", "a", {}}).add({"Second", "b", {}}).add({"First", "c", {}});
  EXPECT_EQ(names(gallery), (std::vector<std::string>{"a", "c", "b"}));
}

TEST(Gallery, RefusesASecondSpecimenOfTheSameName) {
  Gallery gallery("Test");
  gallery.add({"First", "a", {}}).add({"Second", "a", {}});
  EXPECT_THROW(gallery.add({"First", "a", {}}), std::invalid_argument);
  EXPECT_EQ(gallery.specimens().size(), 2U);
}

TEST(Gallery, IsInEnglishAndInTheLanguagesThatAreAdded) {
  Gallery gallery("Test");
  gallery.addLanguage({.name = "Deutsch", .locale = "de_DE"});
  ASSERT_EQ(gallery.languages().size(), 2U);
  EXPECT_EQ(environmentFor(gallery.languages()[0]).locale, "en_US");
  EXPECT_EQ(environmentFor(gallery.languages()[1]).locale, "de_DE");
}

TEST(Gallery, MountsASpecimenAfterItsPreparation) {
  int presses = 0;
  const Specimen specimen{
      .section = "s",
      .name = "n",
      .view = ui::Button(ui::verbatim("Go"), [&] { ++presses; }),
      .prepare = [](testing::Screen& screen) { screen.press(testing::button("Go")); }};
  const auto screen = mount(specimen, {});
  EXPECT_EQ(presses, 1);
  EXPECT_EQ(screen->shownTexts(), std::vector<std::string>{"Go"});
}

}  // namespace
}  // namespace vemra::gallery
