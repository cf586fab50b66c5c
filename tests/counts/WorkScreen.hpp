#pragma once

#include "tests/VemraQt/WindowHost.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

class QLineEdit;
class QStyle;

namespace vemra::work {

/// The work of one event on a screen, as counts.
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

/// The goal screen in a window; two screens differ only in their numbers of people. It has the
/// content of the benchmarks, so the tests count the work that the benchmarks time.
class WorkScreen {
 public:
  explicit WorkScreen(std::size_t people);

  /// The work of `action` and of everything up to the painted window.
  Work costOf(const std::function<void()>& action);
  /// All work so far: for a new screen, that of the first frame.
  Work costSoFar() const;

  void press(const std::string& identifier) { host_->press(identifier); }
  QLineEdit& noteOf(std::size_t person);
  void scrollToEnd();
  void scrollTo(int position);
  /// The style of the page, which outlives it; nullptr for the application's.
  void setStyle(QStyle* style) { host_->widget.setStyle(style); }
  /// Whether a search of assistive technology finds an element with the identifier.
  bool has(const std::string& identifier);
  void wheelDown();
  /// Records an outcome for a person in the data; `show` then shows it.
  void recordOutcome(std::size_t person);
  void show() { host_->show(); }

 private:
  std::unique_ptr<qttest::WindowHost> host_;
};

}  // namespace vemra::work
