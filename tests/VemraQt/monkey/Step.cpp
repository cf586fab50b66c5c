#include "tests/VemraQt/monkey/Step.hpp"

#include <array>
#include <cmath>
#include <numeric>
#include <random>
#include <string_view>

namespace vemra::monkey {

namespace {

struct Weighted {
  Act act;
  std::string_view name;
  unsigned weight;
};

// In the order of `Act`. Typing and pressing are more frequent than changes of results.
constexpr std::array<Weighted, 15> acts{{
    {Act::press, "press", 22},
    {Act::type, "type", 24},
    {Act::write, "write", 2},
    {Act::choose, "choose", 6},
    {Act::scroll, "scroll", 12},
    {Act::resize, "resize", 2},
    {Act::tab, "tab", 12},
    {Act::surround, "surround", 1},
    {Act::change, "change", 8},
    {Act::answer, "answer", 1},
    {Act::catchUp, "catchUp", 2},
    {Act::turn, "turn", 2},
    {Act::away, "away", 1},
    {Act::hold, "hold", 2},
    {Act::pressHeld, "pressHeld", 1},
}};

}  // namespace

Story randomStory(std::uint64_t seed, std::size_t steps, std::optional<std::size_t> people) {
  std::mt19937_64 random(seed);
  // Not a distribution of the library, which draws differently on other machines.
  const auto draw = [&] { return static_cast<std::uint32_t>(random() >> 32); };
  const unsigned all = std::accumulate(
      acts.begin(), acts.end(), 0U, [](unsigned sum, const Weighted& w) { return sum + w.weight; });
  Story story;
  // Most of the work is that of the other screen, which describes all people, so a few hundred are
  // many.
  const double share = draw() / 4294967296.0;
  story.people =
      people.value_or(static_cast<std::size_t>(std::pow(300.0, share * share * share)) - 1);
  story.steps.reserve(steps);
  for (std::size_t i = 0; i < steps; ++i) {
    unsigned drawn = draw() % all;
    std::size_t place = 0;
    while (drawn >= acts[place].weight) drawn -= acts[place++].weight;
    story.steps.push_back({acts[place].act, draw() % 10'000, draw() % 10'000, draw() % 10'000});
  }
  return story;
}

std::string code(const Story& story) {
  std::string text = "Story{" + std::to_string(story.people) + ", {";
  for (const Step& step : story.steps) {
    text += "\n    {Act::" + std::string(acts[static_cast<std::size_t>(step.act)].name);
    for (const std::uint32_t figure : {step.a, step.b, step.c}) {
      text += ", " + std::to_string(figure);
    }
    text += "},";
  }
  return text + "\n}}";
}

}  // namespace vemra::monkey
