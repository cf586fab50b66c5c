// A library that a host loads at run time, on any thread; it has a main actor of its own.

#include "VemraPlatform/task/MainActor.hpp"

namespace {

const bool wasCurrentWhenLoaded = vemra::task::MainActor::isCurrent();

}  // namespace

extern "C" {

[[gnu::visibility("default")]] bool vemraPluginWasCurrentWhenLoaded() {
  return wasCurrentWhenLoaded;
}

[[gnu::visibility("default")]] bool vemraPluginIsCurrent() {
  return vemra::task::MainActor::isCurrent();
}
}
