// Any text: it is read as a date-time exactly when the grammar accepts it, as the same instant.

#include "VemraPlatform/date/InternetDateTime.hpp"
#include "tests/VemraPlatform/date/ReadByGrammar.hpp"
#include "tests/fuzz/Target.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(vemra::fuzz::textOf(data, size));
  const auto expected = vemra::testing::readByGrammar(text);
  const auto instant = vemra::date::parseInternetDateTime(text);
  vemra::fuzz::require(instant.has_value() == expected.has_value(),
                       "a text is readable when the grammar has it", text);
  vemra::fuzz::require(!instant || instant->secondsSinceEpoch == *expected,
                       "a date-time is the instant that counting days gives", text);
  return 0;
}
