#pragma once

#include "tests/VemraQt/WindowHost.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

class QLineEdit;

namespace vemra::work {

/// What one thing that happens to a screen costs, in things done.
struct Work {
  std::uint64_t rowsDescribed = 0;
  std::uint64_t bodiesDescribed = 0;
  std::uint64_t nodesMade = 0;
  std::uint64_t patches = 0;
  std::uint64_t idPasses = 0;
  std::uint64_t allocations = 0;
  std::size_t widgetsAlive = 0;  ///< afterwards
  friend bool operator==(const Work&, const Work&) = default;
};

std::ostream& operator<<(std::ostream& out, const Work& work);

/// The goal screen in a window of which only the number of people differs from another.
/// It shows what the benchmarks time, so that what is counted here is what takes the time there.
class WorkScreen {
 public:
  explicit WorkScreen(std::size_t people);

  /// What `action` and everything up to the painted window cost.
  Work costOf(const std::function<void()>& action);
  /// What all that happened so far cost: the first frame, for a screen that was just made.
  Work costSoFar() const;

  void press(const std::string& identifier) { host_->press(identifier); }
  QLineEdit& noteOf(std::size_t person);
  void scrollToEnd();
  void wheelDown();
  /// Records an outcome for a person in the data; `show` is what brings it to the screen.
  void recordOutcome(std::size_t person);
  void show() { host_->show(); }

 private:
  std::unique_ptr<qttest::WindowHost> host_;
};

}  // namespace vemra::work
