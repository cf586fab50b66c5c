#include "tests/VemraQt/monkey/Run.hpp"

#include "tests/VemraQt/QuietQt.hpp"
#include "tests/VemraQt/monkey/Agreement.hpp"
#include "tests/VemraQt/monkey/Twins.hpp"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <unistd.h>

#include <QApplication>

#ifdef VEMRA_ADDRESS_SANITIZER
extern "C" void __sanitizer_set_death_callback(void (*callback)());
#endif

namespace vemra::monkey {

namespace {

using Clock = std::chrono::steady_clock;

// The number of steps between two comparisons of everything; and between two of every row, also
// those far from the viewport.
constexpr std::size_t stepsBetweenLooks = 4;
constexpr std::size_t stepsBetweenFullLooks = 100;
constexpr std::chrono::seconds longestShortening{20};

std::uint64_t seedNow = 0;
std::size_t stepNow = 0;

void writeSeed() {
  char text[96];
  const int size = std::snprintf(text, sizeof text, "the monkey died: seed %llu, step %zu\n",
                                 static_cast<unsigned long long>(seedNow), stepNow);
  if (write(STDERR_FILENO, text, static_cast<std::size_t>(size)) < 0) return;
}

void onSignal(int signal) {
  writeSeed();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void watchDeath() {
#ifdef VEMRA_ADDRESS_SANITIZER
  __sanitizer_set_death_callback(writeSeed);
#else
  std::signal(SIGSEGV, onSignal);
#endif
  std::signal(SIGABRT, onSignal);
}

struct Failure {
  std::string what;
  std::size_t step = 0;
};

std::optional<Failure> run(const Story& story, std::size_t between) {
  const int messages = qttest::messageCount();
  std::optional<Failure> failure;
  stepNow = 0;
  try {
    Twins twins(story.people);
    expectAgreement(twins);
    for (; stepNow < story.steps.size(); ++stepNow) {
      twins.perform(story.steps[stepNow]);
      QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      if (qttest::messageCount() != messages) throw Disagreement("Qt complains");
      if (stepNow % between == 0) expectAgreement(twins);
      if (stepNow % stepsBetweenFullLooks == stepsBetweenFullLooks - 1) {
        expectAgreementEverywhere(twins);
      }
    }
    expectAgreementEverywhere(twins);
  } catch (const std::exception& error) {
    failure = Failure{error.what(), stepNow};
  }
  return failure;
}

/// Omits smaller and smaller parts of the story while it still fails in a similar way.
Story shortened(Story story, const std::string& what) {
  const auto failsAlike = [&](const Story& shorter) {
    auto failure = run(shorter, 1);
    const bool alike = failure && failure->what.substr(0, 16) == what.substr(0, 16);
    return alike ? failure : std::nullopt;
  };
  const auto end = Clock::now() + longestShortening;
  for (std::size_t part = std::max<std::size_t>(1, story.steps.size() / 2); part > 0;) {
    bool shorter = false;
    for (std::size_t from = 0; from < story.steps.size() && Clock::now() < end;) {
      Story without = story;
      const auto first = without.steps.begin() + static_cast<std::ptrdiff_t>(from);
      const auto count = std::min(part, without.steps.size() - from);
      without.steps.erase(first, first + static_cast<std::ptrdiff_t>(count));
      if (const auto failure = failsAlike(without)) {
        without.steps.resize(std::min(without.steps.size(), failure->step + 1));
        story = std::move(without);
        shorter = true;
      } else {
        from += part;
      }
    }
    for (const std::size_t fewer : {story.people / 2, story.people - (story.people > 0 ? 1 : 0)}) {
      const Story smaller{fewer, story.steps};
      if (fewer < story.people && Clock::now() < end && failsAlike(smaller)) {
        story = smaller;
        shorter = true;
        break;
      }
    }
    if (Clock::now() >= end) break;
    if (!shorter || part > 1) part /= 2;
  }
  return story;
}

}  // namespace

std::optional<std::string> tell(std::uint64_t seed, const Story& story) {
  watchDeath();
  seedNow = seed;
  const auto failure = run(story, stepsBetweenLooks);
  if (!failure) return std::nullopt;
  Story failing = story;
  failing.steps.resize(std::min(failing.steps.size(), failure->step + 1));
  failing = shortened(failing, failure->what);
  const auto last = run(failing, 1);
  return "seed " + std::to_string(seed) + ", step " + std::to_string(failure->step) + ": " +
         failure->what + "\n\nIn short (" + (last ? last->what : "which does not fail alone") +
         "):\n\n" + code(failing) + "\n";
}

}  // namespace vemra::monkey
