// Two texts: they are equal exactly when ICU finds them canonically equivalent, or, if one is
// ill-formed, when their bytes are equal; in both directions; and equal texts have the same hash.
//
// The first byte chooses how to make two texts from the rest: by cutting it in two, or as random
// numbers for `RandomText`, which makes texts that are likely to be equivalent.

#include "VemraPlatform/text/Equality.hpp"

#include "tests/VemraPlatform/text/Definition.hpp"
#include "tests/VemraPlatform/text/RandomText.hpp"
#include "tests/fuzz/Target.hpp"

namespace vemra {
namespace {

void compare(const std::string& a, const std::string& b) {
  const bool areSame = vemra::testing::areSameByDefinition(a, b);
  fuzz::require(text::equal(a, b) == areSame, "texts are equal when ICU says so", a, b);
  fuzz::require(text::equal(b, a) == areSame, "equality is symmetric", a, b);
  fuzz::require(text::equal(a, a) && text::equal(b, b), "a text equals itself", a, b);
  fuzz::require(!areSame || text::hash(a) == text::hash(b), "equal texts have one hash", a, b);
  fuzz::require(!areSame || !text::differAtAGlance(a, b), "equal texts do not differ at a glance",
                a, b);
}

}  // namespace
}  // namespace vemra

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vemra;
  if (size < 2) return 0;
  const std::string_view rest = fuzz::textOf(data + 2, size - 2);
  vemra::testing::Random random(std::span(data + 2, size - 2));
  vemra::testing::RandomText texts(random);
  switch (data[0] % 4) {
    case 0: {  // as they are
      const std::size_t cut = data[1] % (rest.size() + 1);
      compare(std::string(rest.substr(0, cut)), std::string(rest.substr(cut)));
      break;
    }
    case 1: {  // a text as it is, and the same in another form
      const std::size_t choices = std::min<std::size_t>(rest.size(), 6);
      const std::string text(rest.substr(choices));
      vemra::testing::Random choice(std::span(data + 2, choices));
      compare(text, vemra::testing::RandomText(choice).variantOf(text));
      break;
    }
    case 2: {  // chosen characters, and the same in another form
      const std::string text = texts.scalars(1 + data[1]);
      std::string other = texts.variantOf(text);
      if (data[1] % 2 == 0) texts.spoil(other);
      compare(text, other);
      break;
    }
    default: {  // two texts of chosen characters
      const std::string text = texts.scalars(1 + data[1] % 16);
      compare(text, texts.scalars(1 + data[1] % 16));
    }
  }
  return 0;
}
