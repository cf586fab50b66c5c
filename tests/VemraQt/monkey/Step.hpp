#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// \file
/// What can happen to a screen, as values: a story that can be told again, shortened and printed.

namespace vemra::monkey {

/// What a step does. What it does it to is drawn by the step's figures from what is there then.
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
  pressHeld,  ///< and presses it, perhaps long after its row has gone
};

/// A step and the figures that it draws by.
struct Step {
  Act act = Act::turn;
  std::uint32_t a = 0, b = 0, c = 0;
};

/// A screen of that many people and all that happens to it.
struct Story {
  std::size_t people = 0;
  std::vector<Step> steps;
};

/// A story of so many steps; of so many people, or mostly few and at times a few hundred. The same
/// seed tells the same story on every machine.
Story randomStory(std::uint64_t seed, std::size_t steps, std::optional<std::size_t> people = {});

/// As C++, to be pasted into a test.
std::string code(const Story& story);

}  // namespace vemra::monkey
