#include "VemraPlatform/ui/EnvironmentOverrides.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

namespace vemra::ui {

namespace {

/// Translates one key.
class OneWord final : public StringsTable {
 public:
  OneWord(std::string key, std::string word) : key_(std::move(key)), word_(std::move(word)) {}
  std::optional<std::string> lookup(std::string_view key) const override {
    if (key != key_) return std::nullopt;
    return word_;
  }

 private:
  std::string key_, word_;
};

std::shared_ptr<const StringsTable> table(const char* key, const char* word) {
  return std::make_shared<OneWord>(key, word);
}

/// An environment with no value that is a default.
Environment below() {
  return {"de_DE", "Europe/Berlin",   table("Save", "Speichern"),
          1.5,     ColorScheme::dark, LayoutDirection::rightToLeft};
}

}  // namespace

TEST(EnvironmentOverrides, WithoutAnyTheEnvironmentStaysAsItIs) {
  const Environment environment = below();
  EXPECT_EQ(EnvironmentOverrides{}.over(environment), environment);
}

TEST(EnvironmentOverrides, OneValueReplacesThatValueAlone) {
  Environment expected = below();
  EXPECT_EQ(EnvironmentOverrides{.locale = "fr_FR"}.over(expected).locale, "fr_FR");
  EXPECT_EQ(EnvironmentOverrides{.timeZone = "UTC"}.over(expected).timeZone, "UTC");
  EXPECT_EQ(EnvironmentOverrides{.textScale = 2}.over(expected).textScale, 2);
  const Environment light = EnvironmentOverrides{.colorScheme = ColorScheme::light}.over(expected);
  EXPECT_EQ(EnvironmentOverrides{.layoutDirection = LayoutDirection::leftToRight}
                .over(expected)
                .layoutDirection,
            LayoutDirection::leftToRight);
  expected.colorScheme = ColorScheme::light;
  EXPECT_EQ(light, expected) << "the other values stay";
}

TEST(EnvironmentOverrides, AHostsTableComesFirstAndTheOneBelowTranslatesWhatItLacks) {
  const EnvironmentOverrides overrides{.strings = table("Save", "Sichern")};
  Environment environment;
  environment.strings = inOrder(table("Save", "Speichern"), table("Cancel", "Abbrechen"));
  const auto strings = overrides.over(environment).strings;
  EXPECT_EQ(strings->lookup("Save"), "Sichern");
  EXPECT_EQ(strings->lookup("Cancel"), "Abbrechen");
  EXPECT_EQ(strings->lookup("Outcome"), std::nullopt);
}

TEST(EnvironmentOverrides, OneOfTwoTablesMayBeMissing) {
  const auto only = table("Save", "Speichern");
  EXPECT_EQ(inOrder(only, nullptr), only);
  EXPECT_EQ(inOrder(nullptr, only), only);
  EXPECT_EQ(inOrder(nullptr, nullptr), nullptr);
}

}  // namespace vemra::ui
