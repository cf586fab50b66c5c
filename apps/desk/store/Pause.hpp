#pragma once

#include <algorithm>
#include <chrono>

namespace vemra::desk {

/// The time after a failure during which a periodic task does not try again. It doubles, from half
/// a second to ten seconds, when the next failure follows soon.
class Pause {
 public:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::milliseconds shortest{500};
  static constexpr std::chrono::milliseconds longest{10'000};

  /// Starts the pause after a failure.
  void begin() {
    const Clock::time_point now = Clock::now();
    const bool isSoon = now < end_ + longest;
    length_ = isSoon ? std::clamp(2 * length_, shortest, longest) : shortest;
    end_ = now + length_;
  }

  /// Forgets all failures.
  void end() { *this = Pause(); }

  bool isOn() const { return Clock::now() < end_; }

 private:
  std::chrono::milliseconds length_{0};
  Clock::time_point end_;
};

}  // namespace vemra::desk
