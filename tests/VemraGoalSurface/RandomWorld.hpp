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

/// Chance, the same for the same seed.
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

/// What the engine knows, and how it changes by chance.
class RandomWorld {
 public:
  explicit RandomWorld(Dice& dice) : dice_(dice) {}

  /// Something happens: people come, go, change and move, paths change, outcomes arrive or leave.
  void change();
  /// An outcome is stored; its id becomes one that no other has.
  void record(model::Record record);

  const model::World& world() const { return world_; }
  /// The same as the engine says it.
  Result result() const;

 private:
  model::Person randomPerson();
  model::Record randomRecord();

  Dice& dice_;
  model::World world_;
  int lastID_ = 0;
};

}  // namespace vemra::screentest
