#pragma once

#include "VemraPlatform/Export.hpp"

#include <string_view>

namespace vemra::task {

/// The main thread, and a check that code runs on it.
///
/// Views are described, and their actions run, on the main thread only. A function that belongs
/// there checks it in its first line:
///
/// ```
/// MainActor::assertIsolated("GoalResultView.body");
/// ```
///
/// The main thread is the first thread of the process, which runs `main`; on Linux, the thread
/// whose id is the id of the process. It does not matter when or on which thread this library was
/// loaded. After a fork it is the only thread of the child. A host that runs its user interface on
/// another thread calls `adoptCurrentThread` there.
///
/// A shared library that links this library statically, and hides its symbols, has a main actor of
/// its own: adopt a thread in each of them.
struct VEMRA_EXPORT MainActor {
  /// Makes the calling thread the main thread of the process, in place of its first thread.
  ///
  /// For a host whose user interface runs on another thread: call it once, on that thread, before
  /// the first view. A second call there changes nothing. A call on a second thread is a
  /// programmer's error that stops the process with a message, even when the adopted thread has
  /// ended. A child process begins without an adopted thread.
  static void adoptCurrentThread() noexcept;

  /// Stops the process, in every build, unless it runs on the main thread.
  ///
  /// - Parameter member: the name of the calling function, for the message on standard error.
  static void assertIsolated(std::string_view member) noexcept;

  /// Whether the caller runs on the main thread. Safe on every thread; takes no lock, and only
  /// nanoseconds after the first call on a thread.
  static bool isCurrent() noexcept;
};

}  // namespace vemra::task
