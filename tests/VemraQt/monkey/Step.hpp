#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// \file
/// Steps on a screen as values, so that a story can be repeated, shortened and printed.

namespace vemra::monkey {

/// The kind of a step. The step's random numbers choose its target among the present elements.
enum class Act : std::uint8_t {
  press,      ///< a button: by mouse, by keyboard, or the way assistive technology does
  type,       ///< one key, or a text at once, into a note
  write,      ///< a note's whole text, the way assistive technology does
  choose,     ///< in a picker: by arrow key or letter, in its menu, or as assistive technology does
  scroll,     ///< by wheel, scroll bar or key
  resize,     ///< the window
  tab,        ///< forward or back
  surround,   ///< another text scale, direction, colour scheme or strings table
  change,     ///< another result at its source, and a new snapshot
  answer,     ///< the host begins to answer recordings in another way
  catchUp,    ///< the host shows what has been recorded
  turn,       ///< a turn of the event loop
  away,       ///< the window is hidden while a new snapshot arrives, then shown
  hold,       ///< a client takes hold of an accessible object
  pressHeld,  ///< and presses it, perhaps long after its row was removed
};

/// A step and its random numbers.
struct Step {
  Act act = Act::turn;
  std::uint32_t a = 0, b = 0, c = 0;
};

/// A screen of that many people and all its steps.
struct Story {
  std::size_t people = 0;
  std::vector<Step> steps;
};

/// A story of so many steps; of so many people, or of a random number: mostly few, sometimes a few
/// hundred. The same seed gives the same story on every machine.
Story randomStory(std::uint64_t seed, std::size_t steps, std::optional<std::size_t> people = {});

/// As C++, to be pasted into a test.
std::string code(const Story& story);

}  // namespace vemra::monkey
