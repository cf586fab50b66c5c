// A page with a very long text lays out no more characters than can be seen, however long the text
// is. Counted, not timed.

#include "VemraPlatform/ui/View.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "VemraQt/widgets/TextLines.hpp"

#include <cstdint>
#include <string>
#include <vector>

#include <QScrollBar>
#include <gtest/gtest.h>

using namespace vemra;

namespace {

std::string repeated(std::string_view text, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) all += text;
  return all;
}

/// The characters that are laid out for the first frame, for a step and for a jump to the end. No
/// event loop runs, so nothing is laid out in idle time.
std::vector<std::int64_t> charactersOf(const std::string& text) {
  std::vector<std::int64_t> counts;
  const auto count = [&](const auto& act) {
    const std::int64_t before = qt::TextLines::unitsLaidOut();
    act();
    counts.push_back(qt::TextLines::unitsLaidOut() - before);
  };
  qt::ViewWidget view;
  view.setEnvironment({});
  view.resize(480, 700);
  count([&] {
    view.setRoot(ui::VStack(ui::HorizontalAlignment::leading, 8,
                            {ui::Text(ui::verbatim(text)), ui::Text("below")}));
    view.show();
    view.grab();
  });
  QScrollBar& bar = *view.verticalScrollBar();
  count([&] { bar.setValue(60), view.grab(); });
  count([&] { bar.setValue(bar.maximum()), view.grab(); });
  return counts;
}

}  // namespace

TEST(LongTextWork, ALongerTextLaysOutNoMoreCharacters) {
  for (const char* const words :
       {"design lead ", "a line\n", "\u05e9\u05dc\u05d5\u05dd ", "xxxxx", "\U0001F600", "\u0301"}) {
    const auto once = charactersOf(repeated(words, 100'000));
    const auto tenTimes = charactersOf(repeated(words, 1'000'000));
    EXPECT_EQ(once[0], tenTimes[0]) << words;
    EXPECT_EQ(once[1], tenTimes[1]) << words;
    EXPECT_LT(tenTimes[0], 60'000) << words;
    EXPECT_LE(tenTimes[1], 5'000) << words;
    EXPECT_LT(tenTimes[2], 60'000) << words;
  }
}

TEST(LongTextWork, AJumpInAnUnevenTextLaysOutNoMoreThanTheView) {
  const std::string paragraph = repeated("design lead ", 250) + "\n";
  const auto counts = charactersOf(repeated("a\n", 12'000) + repeated(paragraph, 60));
  EXPECT_LT(counts[2], 60'000);
}
