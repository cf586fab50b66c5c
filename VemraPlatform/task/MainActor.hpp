#pragma once

#include "VemraPlatform/Export.hpp"

#include <string_view>

namespace vemra::task {

/// The main thread, as a place that code can insist on.
///
/// A view is described, and its actions run, on the main thread and nowhere else. What belongs there
/// says so in its first line:
///
/// ```
/// MainActor::assertIsolated("GoalResultView.body");
/// ```
///
/// The main thread is the first thread of the process, the one that runs `main`; on Linux, the one
/// whose id is the id of the process. It does not matter when or on which thread the code here was
/// loaded. After a fork it is the one thread of the child. A host that runs its user interface on
/// another thread says so with `adoptCurrentThread`.
///
/// A shared library that links this one statically, and hides its symbols, has a main actor of its
/// own: adopt a thread in each.
struct VEMRA_EXPORT MainActor {
  /// Makes the calling thread the main thread of the process, in place of its first thread.
  ///
  /// For a host whose user interface runs on a thread of its own: once, on that thread, before the
  /// first view. Calling it again there changes nothing. On a second thread it is a programmer error
  /// that stops the process with a message, also when the first one has ended. A child of a fork
  /// starts anew.
  static void adoptCurrentThread() noexcept;

  /// Stops the process, in every build, unless it runs on the main thread.
  ///
  /// - Parameter member: what was called, named in the message on standard error.
  static void assertIsolated(std::string_view member) noexcept;

  /// Says whether the caller runs on the main thread. Safe on every thread, locks nothing, and takes
  /// nanoseconds after the first call on a thread.
  static bool isCurrent() noexcept;
};

}  // namespace vemra::task
