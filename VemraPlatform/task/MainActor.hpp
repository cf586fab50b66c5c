#pragma once

#include <string_view>

namespace vemra::task {

/// The main thread, as a place that code can insist on.
///
/// A view is described, and its actions run, on the thread that initialised the program and nowhere
/// else. What belongs there says so in its first line:
///
/// ```
/// MainActor::assertIsolated("GoalResultView.body");
/// ```
struct MainActor {
  /// Stops the process, in every build, unless it runs on the main thread.
  ///
  /// - Parameter member: what was called, named in the message on standard error.
  static void assertIsolated(std::string_view member) noexcept;

  /// Says whether the caller runs on the thread that initialised the program.
  static bool isCurrent() noexcept;
};

}  // namespace vemra::task
