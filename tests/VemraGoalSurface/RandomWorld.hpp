#pragma once

#include "tests/VemraGoalSurface/SampleScreen.hpp"
#include "tests/VemraGoalSurface/ScreenModel.hpp"

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace vemra::screentest {

inline const std::vector<model::Reference> references{
    {"a", 0}, {composed, 1}, {decomposed, 1}, {"b.c d", 2}, {"", 3}};

/// The bytes of the reference at that index.
inline const std::string& bytes(int reference) {
  return references[static_cast<std::size_t>(reference)].bytes;
}

/// Random numbers, the same for the same seed.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : random_(seed) {}
  std::size_t below(std::size_t bound) {
    return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_);
  }
  bool oneIn(std::size_t n) { return below(n) == 0; }
  std::mt19937_64& engine() { return random_; }

 private:
  std::mt19937_64 random_;
};

/// The engine's data, and random changes of it.
class RandomWorld {
 public:
  explicit RandomWorld(Dice& dice) : dice_(dice) {}

  /// Makes one change: people are added, removed, changed and moved, paths change, outcomes are
  /// added or removed.
  void change();
  /// Stores an outcome with a new id.
  void record(model::Record record);

  const model::World& world() const { return world_; }
  /// The same data as the engine's answer.
  Result result() const;

 private:
  model::Person randomPerson();
  model::Record randomRecord();

  Dice& dice_;
  model::World world_;
  int lastID_ = 0;
};

}  // namespace vemra::screentest
