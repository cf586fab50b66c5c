#pragma once

#include "tests/VemraPlatform/ui/Sample.hpp"

#include <stdexcept>
#include <string>

namespace vemra::ui::sample {

/// The exception of the tests' views.
struct Fault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// A field whose text cannot be read.
inline View broken() {
  return TextField("field", Binding<std::string>([]() -> std::string { throw Fault("get"); },
                                                 [](const std::string&) {}));
}

}  // namespace vemra::ui::sample
